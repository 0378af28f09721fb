// Measures the real window with its screens over a source on loopback, drawn by the software renderer without a
// display: what a key in Search costs until the list is painted, how long screens take to appear, the longest turn of
// the main thread's loop while sources are refreshed and removed, and what scrolling costs a frame. All of it is
// processor time of the main thread, which draws too. Besides, how many icons that thread decodes. One figure a line:
// name, value, unit.
#include "actions/PackageInstaller.h"
#include "benchmarks/CountedImages.h"
#include "benchmarks/Figures.h"
#include "benchmarks/GeneratedIndex.h"
#include "benchmarks/IndexData.h"
#include "benchmarks/PacedServer.h"
#include "benchmarks/PackedBody.h"
#include "catalog/RepoManager.h"
#include "http/Client.h"
#include "resources/VeskResources.h"
#include "tests/support/MemorySourceStore.h"
#include "tests/support/RecordingOpener.h"
#include "tests/support/ui/TouchDriver.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/navigation/TabBarController.h"
#include "ui/screens/shell/AppDelegate.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <ctime>

namespace {

constexpr int rounds = 5;
constexpr QSize phone(390, 844);
enum Tab { Home, Changes, Categories, Search, Manage };

double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// The longest turn of the main thread's loop while it lives: from when it wakes up to when it waits again.
class LongestTurn
{
public:
    LongestTurn()
    {
        QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
        QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &m_context, [this] {
            end();
            m_begin = processorTime();
        });
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &m_context, [this] { end(); });
    }

    double milliseconds()
    {
        end();
        return m_longest;
    }

private:
    void end()
    {
        m_longest = std::max(m_longest, processorTime() - m_begin);
        m_begin = processorTime();
    }

    QObject m_context;
    double m_begin = processorTime();
    double m_longest = 0;
};

// A window over sources of its own, each an index of one server.
class World
{
public:
    explicit World(const std::vector<QByteArray>& indexes)
        : m_server(bodiesOf(indexes), 0)
        , m_manager(catalogWorld())
        , m_installer(surroundings())
        , m_delegate(m_manager, m_installer)
    {
        std::vector<VeskRepositoryPtr> sources;
        for (std::size_t number = 0; number < indexes.size(); ++number)
            sources.push_back(VeskRepository::repositoryWithURLString(
                QStringLiteral("http://127.0.0.1:%1/%2").arg(m_server.port()).arg(number), QStringLiteral("Measured")));
        m_manager.setRepositories(sources);
        m_delegate.didFinishLaunchingWithOptions();
        m_delegate.window()->quickWindow()->resize(phone);
        m_touch = std::make_unique<TouchDriver>(*m_delegate.window());
        TouchDriver::waitUntil([this] { return !m_manager.packages().empty(); }, 120000);
        m_touch->settle();
    }

    RepoManager& manager() { return m_manager; }
    TouchDriver& touch() { return *m_touch; }
    void refresh()
    {
        QEventLoop loop;
        m_manager.refreshAllWithCompletion([&loop] { loop.quit(); });
        loop.exec();
    }
    // All that is done until the next picture stands, which it may do before the step returns: that handles events too.
    double frameAfter(const std::function<void()>& step)
    {
        QEventLoop loop;
        bool isPainted = false;
        const auto painted = QObject::connect(&m_touch->quickWindow(), &QQuickWindow::frameSwapped, &loop, [&] {
            isPainted = true;
            loop.quit();
        });
        return processorTimeOf([&] {
            step();
            if (!isPainted)
                loop.exec();
            QObject::disconnect(painted);
        });
    }

private:
    static std::map<QByteArray, QByteArray> bodiesOf(const std::vector<QByteArray>& indexes)
    {
        std::map<QByteArray, QByteArray> bodies;
        for (std::size_t number = 0; number < indexes.size(); ++number)
            bodies["/" + QByteArray::number(static_cast<int>(number)) + "/Packages.gz"] = packedByGzip(indexes[number]);
        return bodies;
    }

    CatalogWorld catalogWorld() const
    {
        QFile status(m_directory.filePath(QStringLiteral("status")));
        if (status.open(QIODevice::WriteOnly))
            status.write(generatedStatus(1000));
        CatalogWorld world;
        world.store = std::make_unique<MemorySourceStore>(std::make_shared<StoreRecord>());
        world.statusPaths = { status.fileName() };
        world.network = std::make_unique<http::Client>();
        world.workers = std::make_shared<Workers>();
        world.collationLocale = QStringLiteral("en");
        return world;
    }

    InstallerSurroundings surroundings()
    {
        InstallerSurroundings surroundings;
        surroundings.archiveDirectories = { m_directory.path() };
        surroundings.urlOpener = std::make_unique<RecordingOpener>(m_opener);
        return surroundings;
    }

    QTemporaryDir m_directory;
    OpenerRecord m_opener;
    PacedServer m_server;
    RepoManager m_manager;
    PackageInstaller m_installer;
    AppDelegate m_delegate;
    std::unique_ptr<TouchDriver> m_touch;
};

void measureSearching(const Figures& figures, World& world)
{
    if (!figures.areWanted("search_frame_ms_63k"))
        return;
    TouchDriver& touch = world.touch();
    touch.tabs().setSelectedIndex(Search);
    touch.settle();
    touch.key(Qt::Key_F, Qt::ControlModifier);
    double worst = 0;
    for (const char* query : { "e", "i", "li", "th", "lib", "pyt", "python", "zzz", "interface", "tool manager" }) {
        std::vector<double> times;
        const QString text = QString::fromLatin1(query);
        for (int round = 0; round < rounds; ++round) {
            touch.type(text.chopped(1));
            touch.settle();
            times.push_back(world.frameAfter([&] { touch.type(text.last(1)); }));
            for (qsizetype left = text.size(); left > 0; --left)
                touch.key(Qt::Key_Backspace);
        }
        worst = std::max(worst, medianOf(times));
    }
    figures.print("search_frame_ms_63k", worst, "ms");
}

double timeToAppear(World& world, int index)
{
    const double time = processorTimeOf([&] { world.touch().tabs().setSelectedIndex(index); });
    world.touch().settle();
    return time;
}

void measureAppearing(const Figures& figures, World& world)
{
    if (!figures.areWanted("appear_"))
        return;
    double unchanged = 0;
    double refreshed = 0;
    for (const int index : { Home, Changes, Categories, Search, Manage }) {
        const int other = index == Home ? Manage : Home;
        std::vector<double> times;
        std::vector<double> timesAfterRefresh;
        for (int round = 0; round < rounds; ++round) {
            timeToAppear(world, other);
            timeToAppear(world, index);
            timeToAppear(world, other);
            times.push_back(timeToAppear(world, index));
            timeToAppear(world, other);
            world.refresh();
            timesAfterRefresh.push_back(timeToAppear(world, index));
        }
        unchanged = std::max(unchanged, medianOf(times));
        refreshed = std::max(refreshed, medianOf(timesAfterRefresh));
    }
    figures.print("appear_ms_63k_again", unchanged, "ms");
    figures.print("appear_ms_63k_after_refresh", refreshed, "ms");
    TouchDriver& touch = world.touch();
    timeToAppear(world, Changes);
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        touch.tapRow({ 0, 3 });
        touch.settle();
        times.push_back(
            processorTimeOf([&] { touch.stack().popViewController(kit::NavigationController::Animation::None); }));
        touch.settle();
    }
    figures.print("appear_ms_63k_back", medianOf(times), "ms");
}

void measureTurns(const Figures& figures, const QByteArray& name, const std::vector<QByteArray>& indexes)
{
    if (!figures.areWanted("main_thread_longest_ms_" + name))
        return;
    World world(indexes);
    std::vector<double> refreshes;
    for (int round = 0; round < 3; ++round) {
        LongestTurn turn;
        world.refresh();
        TouchDriver::waitUntil([] { return false; }, 200);
        refreshes.push_back(turn.milliseconds());
    }
    figures.print("main_thread_longest_ms_" + name, medianOf(refreshes), "ms");
    LongestTurn turn;
    world.manager().removeRepository(world.manager().repositories().front());
    TouchDriver::waitUntil([] { return false; }, 200);
    figures.print("main_thread_longest_ms_" + name + "_removed", turn.milliseconds(), "ms");
}

void measureScrolling(const Figures& figures, const QByteArray& large)
{
    const QByteArray scale = "_at_scale_" + qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toLatin1();
    if (!figures.areWanted("scroll_ms_per_frame" + scale) && !figures.areWanted("frames_over_16ms" + scale))
        return;
    World world({ large });
    TouchDriver& touch = world.touch();
    timeToAppear(world, Changes);
    std::vector<double> frames;
    constexpr int frameCount = 100;
    frames.reserve(frameCount);
    for (int frame = 0; frame < frameCount; ++frame)
        frames.push_back(world.frameAfter([&] { touch.wheel({ 200, 400 }, 1); }));
    figures.print("scroll_ms_per_frame" + scale, medianOf(frames), "ms");
    int slow = 0;
    const auto count = [&slow](double frame) { slow += frame > 16 ? 1 : 0; };
    touch.flick({ 195, 750 }, { 195, 150 });
    for (int frame = 0; frame < 60; ++frame)
        count(world.frameAfter([&] { touch.quickWindow().update(); }));
    figures.print("frames_over_16ms" + scale, slow, "frames");
}

// As many icons as there are rows in sight have to be decoded by somebody, or nothing was measured.
void measureIcons(const Figures& figures)
{
    if (!figures.areWanted("icon_decodes_on_main"))
        return;
    constexpr int packages = 100;
    constexpr int rowsInSight = 8;
    std::map<QByteArray, QByteArray> icons;
    for (int number = 0; number < packages; ++number)
        icons["/" + QByteArray::number(number)] = CountedImages::encoded(number);
    const PacedServer server(std::move(icons), 0);
    QByteArray index;
    for (int number = 0; number < packages; ++number)
        index += QStringLiteral("Package: icon%1\nVersion: 1\nIcon: http://127.0.0.1:%2/%1\n\n")
                     .arg(number)
                     .arg(server.port())
                     .toLatin1();
    World world({ index });
    timeToAppear(world, Changes);
    if (!TouchDriver::waitUntil(
            [] { return CountedImages::decodedOnMainThread() + CountedImages::decodedElsewhere() >= rowsInSight; }))
        qFatal("No icons were decoded");
    figures.print("icon_decodes_on_main", CountedImages::decodedOnMainThread(), "decodes");
}

// The same packages under other identifiers.
std::vector<QByteArray> eightSources(const QByteArray& text)
{
    const QByteArray all = tenTimes(text);
    std::vector<QByteArray> indexes;
    for (qsizetype number = 0; number < 8; ++number) {
        const qsizetype begin = all.indexOf("\n\nPackage: ", all.size() / 10 * number);
        indexes.push_back(all.mid(begin, all.size() / 10));
    }
    return indexes;
}

// With room for the window at every scale: a screen of the platform's own size would take it for a phone's.
QByteArray platformWithLargeScreen(const QTemporaryDir& directory)
{
    QFile configuration(directory.filePath(QStringLiteral("screen.json")));
    if (!configuration.open(QIODevice::WriteOnly))
        return {};
    configuration.write(R"({"screens": [{"name": "bench", "x": 0, "y": 0, "width": 3840, "height": 3072}]})");
    return "offscreen:configfile=" + configuration.fileName().toLocal8Bit();
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir directory;
    qputenv("QT_QPA_PLATFORM", platformWithLargeScreen(directory));
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    initialiseResources();
    const Figures figures(argc, argv);
    const QByteArray text = realIndex();
    if (figures.areWanted("search_frame_ms_63k") || figures.areWanted("appear_")) {
        World world({ text });
        measureSearching(figures, world);
        measureAppearing(figures, world);
    }
    measureTurns(figures, "508k_in_eight_sources", eightSources(text));
    const QByteArray large = tenTimes(text);
    measureTurns(figures, "634k_in_one_source", { large });
    measureScrolling(figures, large);
    measureIcons(figures);
    return 0;
}
