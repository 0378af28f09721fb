// Measures a refresh from the socket to the list, over a server on loopback that sends at 100 Mbit/s and one that sends
// as fast as it can: how long the last step takes, from the last byte received to the completion on the main thread,
// and how a whole refresh compares with decompressing the same body. The index is Debian's own where ./bench found one
// on the machine, else one of 60,000 generated packages. Times are medians of several rounds.
#include "benchmarks/Figures.h"
#include "benchmarks/GeneratedIndex.h"
#include "benchmarks/IndexData.h"
#include "benchmarks/PacedServer.h"
#include "benchmarks/PackedBody.h"
#include "catalog/RepoManager.h"
#include "http/Client.h"
#include "tests/support/MemorySourceStore.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <atomic>
#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

constexpr double hundredMegabits = 100e6 / 8;
constexpr double unlimited = 0;
constexpr int rounds = 7;

// Passes a body on and notes when its last byte came.
class TimedReceiver : public http::Receiver
{
public:
    TimedReceiver(std::shared_ptr<http::Receiver> receiver, std::atomic<Clock::rep>& lastByte)
        : m_receiver(std::move(receiver))
        , m_lastByte(lastByte)
    {
    }

    bool begin(int status) override { return m_receiver->begin(status); }
    bool receive(std::string_view piece) override
    {
        m_lastByte = Clock::now().time_since_epoch().count();
        return m_receiver->receive(piece);
    }

private:
    std::shared_ptr<http::Receiver> m_receiver;
    std::atomic<Clock::rep>& m_lastByte;
};

class TimedNetwork : public http::Network
{
public:
    explicit TimedNetwork(std::atomic<Clock::rep>& lastByte)
        : m_lastByte(lastByte)
    {
    }

    void start(const http::Request& request, std::shared_ptr<http::Receiver> receiver, Done done,
        std::stop_token stop) override
    {
        m_client.start(request, std::make_shared<TimedReceiver>(std::move(receiver), m_lastByte), std::move(done),
            std::move(stop));
    }

private:
    std::atomic<Clock::rep>& m_lastByte;
    http::Client m_client;
};

struct Refresh
{
    double whole = 0;
    double tail = 0;
};

// One refresh of the one source of a new manager.
Refresh refreshOnce(const PacedServer& server, const QString& statusPath)
{
    std::atomic<Clock::rep> lastByte = 0;
    CatalogWorld world;
    world.store = std::make_unique<MemorySourceStore>(std::make_shared<StoreRecord>());
    world.statusPaths = { statusPath };
    world.workers = std::make_shared<Workers>();
    world.network = std::make_unique<TimedNetwork>(lastByte);
    world.collationLocale = QStringLiteral("en");
    RepoManager manager(std::move(world));
    manager.setRepositories({ VeskRepository::repositoryWithURLString(
        QStringLiteral("http://127.0.0.1:%1/").arg(server.port()), QStringLiteral("Paced")) });
    QEventLoop loop;
    Refresh refresh;
    refresh.whole = millisecondsOf([&] {
        manager.refreshAllWithCompletion([&] {
            const Clock::duration sinceLastByte(Clock::now().time_since_epoch().count() - lastByte);
            refresh.tail = std::chrono::duration<double, std::milli>(sinceLastByte).count();
            loop.quit();
        });
        loop.exec();
    });
    if (manager.packages().empty())
        qFatal("The server's index did not arrive.");
    return refresh;
}

struct Body
{
    const char* name;
    QByteArray path;
    QByteArray bytes;
    std::function<void()> decodeAlone;
};

void measure(const Figures& figures, const Body& body, double rate, const QByteArray& suffix, const QString& statusPath)
{
    const QByteArray tail = "refresh_tail_ms_" + QByteArray(body.name) + suffix;
    const QByteArray overFloor = "refresh_loopback_over_decoding_" + QByteArray(body.name) + suffix;
    const bool hasFloor = rate == unlimited && body.decodeAlone;
    if (!figures.areWanted(tail) && !(hasFloor && figures.areWanted(overFloor)))
        return;
    const PacedServer server({ { body.path, body.bytes } }, rate);
    std::vector<double> tails;
    Comparison whole;
    for (int round = 0; round < rounds; ++round) {
        const double floor = hasFloor ? millisecondsOf(body.decodeAlone) : 1;
        const Refresh refresh = refreshOnce(server, statusPath);
        tails.push_back(refresh.tail);
        whole.addRound(floor, refresh.whole);
    }
    figures.print(tail, medianOf(tails), "ms");
    if (hasFloor)
        figures.print(overFloor, whole.ratio(), "ratio");
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Figures figures(argc, argv);
    if (!figures.areWanted("refresh_"))
        return 0;
    const QTemporaryDir directory;
    const QString statusPath = directory.filePath(QStringLiteral("status"));
    QFile status(statusPath);
    if (status.open(QIODevice::WriteOnly))
        status.write(generatedStatus(1000));
    status.close();
    const QByteArray text = realIndex();
    const QByteArray gzip = packedByGzip(text);
    const QByteArray bzip2 = packedByBzip2(text);
    for (const Body& body : { Body{ "gz", "/Packages.gz", gzip, [&] { inflateAlone(gzip); } },
             Body{ "bz2", "/Packages.bz2", bzip2, [&] { bunzipAlone(bzip2); } },
             Body{ "plain", "/Packages", text, nullptr } }) {
        measure(figures, body, hundredMegabits, {}, statusPath);
        measure(figures, body, unlimited, "_unlimited", statusPath);
    }
    return 0;
}
