// Measures the catalog on a generated index of 60,000 packages and prints one figure a line: name, value, unit.
// Times are medians of several rounds. What is set in relation is measured in turn within each round, and the ratio is
// the median of the rounds' own: it holds on a machine that is busy with other things too, as long as it is not so busy
// that the threads of one reading have to take turns. What threads work is told as processor time too, which holds even
// then.
//
// Measured by ./bench on two cores: a reading of the gzip index takes 1.8 times as long as inflating it, a refresh over
// loopback 1.9 times, a package 224 bytes and 389 with all that search and order need, and a keystroke 0.3 to 1.6 ms.
#include "benchmarks/Figures.h"
#include "benchmarks/GeneratedIndex.h"
#include "benchmarks/PackedBody.h"
#include "catalog/RepoManager.h"
#include "catalog/index/IndexParser.h"
#include "catalog/text/TextDecoding.h"
#include "http/Client.h"
#include "tests/catalog/index/ReadIndex.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/MemorySourceStore.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>

#include <algorithm>
#include <ctime>
#include <functional>
#include <malloc.h>

namespace {

constexpr int packageCount = 60000;
constexpr int rounds = 9;
constexpr int slowRounds = 3;

// The processor's time alone, of this thread or of all: it hardly depends on what else the machine does.
double processorTimeOf(clockid_t clock, const std::function<void()>& work)
{
    const auto now = [clock] {
        timespec time{};
        clock_gettime(clock, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double begin = now();
    work();
    return now() - begin;
}

double medianTimeOf(const std::function<void()>& work)
{
    std::vector<double> times(rounds);
    std::generate(times.begin(), times.end(), [&work] { return millisecondsOf(work); });
    return medianOf(std::move(times));
}

// The times of some work beside those of the floor that no such work can go below.
class Comparison
{
public:
    void addRound(double floor, double time)
    {
        m_times.push_back(time);
        m_ratios.push_back(time / floor);
    }

    void print(const QByteArray& name, const QByteArray& floorName) const
    {
        printFigure(name.constData(), medianOf(m_times), "ms");
        printFigure((name + "_to_" + floorName).constData(), medianOf(m_ratios), "ratio");
    }

private:
    std::vector<double> m_times;
    std::vector<double> m_ratios;
};

double heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

// The outside world of the benchmark: its index, its server, its status file.
struct Setting
{
    QByteArray text = generatedIndex(packageCount);
    QByteArray gzip = packedByGzip(text);
    QByteArray bzip2 = packedByBzip2(text);
    QTemporaryDir directory;
    LoopbackServer server;
    std::shared_ptr<const NameOrder> order = std::make_shared<const NameOrder>(QStringLiteral("en"));
    VeskRepositoryPtr source;

    Setting()
    {
        QFile status(statusPath());
        if (status.open(QIODevice::WriteOnly))
            status.write(generatedStatus(packageCount));
        server.serve("/Packages.gz", gzip);
        source = VeskRepository::repositoryWithURLString(server.url(), QStringLiteral("Generated"));
    }

    QString statusPath() const { return directory.filePath(QStringLiteral("status")); }

    ParsedIndex read(const QByteArray& body, Compression compression) const
    {
        return readIndex({ compression, source, { statusPath() }, order, {} }, body);
    }

    std::unique_ptr<RepoManager> manager() const
    {
        CatalogWorld world;
        world.store = std::make_unique<MemorySourceStore>(std::make_shared<StoreRecord>());
        world.statusPaths = { statusPath() };
        world.network = std::make_unique<http::Client>();
        world.workers = std::make_shared<Workers>();
        world.collationLocale = QStringLiteral("en");
        auto manager = std::make_unique<RepoManager>(std::move(world));
        manager->setRepositories({ source });
        return manager;
    }
};

void refreshAndWait(RepoManager& manager)
{
    QEventLoop loop;
    manager.refreshAllWithCompletion([&loop] { loop.quit(); });
    loop.exec();
}

void measureReading(const Setting& setting)
{
    std::vector<double> floors;
    Comparison read;
    Comparison refresh;
    const auto manager = setting.manager();
    for (int round = 0; round < rounds; ++round) {
        floors.push_back(millisecondsOf([&] { inflateAlone(setting.gzip); }));
        read.addRound(floors.back(), millisecondsOf([&] { setting.read(setting.gzip, Compression::Gzip); }));
        refresh.addRound(floors.back(), millisecondsOf([&] { refreshAndWait(*manager); }));
    }
    printFigure("catalog.packages", static_cast<double>(manager->packages().size()), "packages");
    printFigure("catalog.inflate_alone", medianOf(floors), "ms");
    read.print("catalog.read_gzip", "inflate");
    refresh.print("catalog.refresh_gzip", "inflate");
}

// With one processor alone, reading takes as long as all threads are at work; with more, somewhat longer than the
// decompression.
void measureWork(const Setting& setting)
{
    Comparison all;
    for (int round = 0; round < rounds; ++round) {
        const double floor = processorTimeOf(CLOCK_THREAD_CPUTIME_ID, [&] { inflateAlone(setting.gzip); });
        const auto read = [&] { setting.read(setting.gzip, Compression::Gzip); };
        all.addRound(floor, processorTimeOf(CLOCK_PROCESS_CPUTIME_ID, read));
    }
    all.print("catalog.read_gzip_work_of_all_threads", "inflate");
}

void measureOtherBodies(const Setting& setting)
{
    printFigure("catalog.read_plain", medianTimeOf([&] { setting.read(setting.text, Compression::None); }), "ms");
    Comparison read;
    for (int round = 0; round < slowRounds; ++round) {
        const double floor = millisecondsOf([&] { bunzipAlone(setting.bzip2); });
        read.addRound(floor, millisecondsOf([&] { setting.read(setting.bzip2, Compression::Bzip2); }));
    }
    read.print("catalog.read_bzip2", "bunzip");
}

void measureMainThread(const Setting& setting)
{
    std::vector<double> merge;
    std::vector<double> sort;
    std::vector<double> clear;
    for (int round = 0; round < rounds; ++round) {
        PackageList packages;
        CatalogIndex index(packages, setting.order);
        ParsedIndex parsed = setting.read(setting.gzip, Compression::Gzip);
        merge.push_back(millisecondsOf([&] { index.merge(std::move(parsed)); }));
        sort.push_back(millisecondsOf([&] { index.packagesByName(); }));
        clear.push_back(millisecondsOf([&] { index.clear(); }));
    }
    printFigure("catalog.merge", medianOf(merge), "ms");
    printFigure("catalog.first_order_by_name", medianOf(sort), "ms");
    printFigure("catalog.clear", medianOf(clear), "ms");
}

// The result of the last query is kept, so the query comes in two spellings in turn.
double keystrokeTime(RepoManager& manager, const QString& query)
{
    const QString other = query.toUpper();
    return medianTimeOf([&] {
        manager.filteredPackagesWithQuery(query);
        manager.filteredPackagesWithQuery(other);
    }) / 2;
}

void measureQueries(RepoManager& manager)
{
    PackageVector shuffled = manager.packages().all();
    std::reverse(shuffled.begin(), shuffled.end());
    printFigure("catalog.sort_all_by_name", medianTimeOf([&] {
        PackageVector packages = shuffled;
        manager.sortByName(packages);
    }),
        "ms");
    for (const char* query : { "e", "li", "th", "lib", "python", "zzz", "tool manager" }) {
        const QByteArray name = "catalog.keystroke_" + QByteArray(query).replace(' ', '_');
        printFigure(name.constData(), keystrokeTime(manager, QString::fromLatin1(query)), "ms");
    }
    const QString query = QStringLiteral("lib");
    printFigure("catalog.same_query_again", medianTimeOf([&] { manager.filteredPackagesWithQuery(query); }), "ms");
    printFigure("catalog.categories", medianTimeOf([&] { manager.categories(); }), "ms");
    const QString category = QStringLiteral("tools");
    printFigure("catalog.packages_of_category", medianTimeOf([&] { manager.packagesForCategory(category); }), "ms");
}

// The records alone are measured by parsing alone, so that nothing else has been asked for and given back in between.
void measureMemory(const Setting& setting)
{
    const DpkgStatus status = DpkgStatus::read({ setting.statusPath() });
    const double before = heapInUse();
    PackageVector records;
    {
        IndexParser parser(setting.source, status);
        parser.feed(viewOf(setting.text));
        records = parser.finish();
    }
    printFigure("catalog.memory_records", (heapInUse() - before) / packageCount, "bytes/package");
    records = PackageVector();

    PackageList packages;
    CatalogIndex index(packages, setting.order);
    const double beforeAll = heapInUse();
    index.merge(setting.read(setting.gzip, Compression::Gzip));
    index.packagesByName();
    printFigure("catalog.memory_with_search_and_order", (heapInUse() - beforeAll) / packageCount, "bytes/package");
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const Setting setting;
    measureMemory(setting);
    measureReading(setting);
    measureWork(setting);
    measureOtherBodies(setting);
    measureMainThread(setting);
    const auto manager = setting.manager();
    refreshAndWait(*manager);
    measureQueries(*manager);
    return 0;
}
