// Measures the catalog on a generated index of 60,000 packages and prints one figure a line: name, value, unit.
// Times are the best of several rounds; what is set in relation is measured in turn within the same rounds.
#include "GeneratedIndex.h"
#include "IndexParser.h"
#include "IndexReader.h"
#include "LoopbackServer.h"
#include "PackedBody.h"
#include "RepoManager.h"
#include "TextDecoding.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <malloc.h>

namespace {

constexpr int packageCount = 60000;
constexpr int rounds = 9;

class EmptyStore : public SourceStore
{
public:
    std::optional<std::vector<StoredSource>> sources() const override { return std::nullopt; }
    bool setSources(const std::vector<StoredSource>&) override { return true; }
};

void print(const char* name, double value, const char* unit)
{
    std::printf("%s %.3f %s\n", name, value, unit);
}

double millisecondsOf(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double bestOf(const std::function<void()>& work)
{
    double best = millisecondsOf(work);
    for (int round = 1; round < rounds; ++round)
        best = std::min(best, millisecondsOf(work));
    return best;
}

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

    IndexJob job(const QByteArray& body, Compression compression) const
    {
        return { body, compression, source, { statusPath() }, order, {}, nullptr };
    }

    std::unique_ptr<RepoManager> manager() const
    {
        CatalogWorld world;
        world.store = std::make_unique<EmptyStore>();
        world.statusPaths = { statusPath() };
        world.network = std::make_unique<QNetworkAccessManager>();
        world.workers = QThreadPool::globalInstance();
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
    double floor = 1e9;
    double read = 1e9;
    double refresh = 1e9;
    const auto manager = setting.manager();
    const IndexJob job = setting.job(setting.gzip, Compression::Gzip);
    for (int round = 0; round < rounds; ++round) {
        floor = std::min(floor, millisecondsOf([&] { inflateAlone(setting.gzip); }));
        read = std::min(read, millisecondsOf([&] { readIndex(job); }));
        refresh = std::min(refresh, millisecondsOf([&] { refreshAndWait(*manager); }));
    }
    print("catalog.packages", static_cast<double>(manager->packages().size()), "packages");
    print("catalog.inflate_alone", floor, "ms");
    print("catalog.read_gzip", read, "ms");
    print("catalog.read_gzip_to_inflate", read / floor, "ratio");
    print("catalog.refresh_gzip", refresh, "ms");
    print("catalog.refresh_gzip_to_inflate", refresh / floor, "ratio");
}

void measureOtherBodies(const Setting& setting)
{
    const IndexJob plain = setting.job(setting.text, Compression::None);
    const IndexJob bzip2 = setting.job(setting.bzip2, Compression::Bzip2);
    print("catalog.read_plain", bestOf([&] { readIndex(plain); }), "ms");
    const double floor = millisecondsOf([&] { bunzipAlone(setting.bzip2); });
    const double read = millisecondsOf([&] { readIndex(bzip2); });
    print("catalog.read_bzip2", read, "ms");
    print("catalog.read_bzip2_to_bunzip", read / floor, "ratio");
}

void measureMainThread(const Setting& setting)
{
    double merge = 1e9;
    double sort = 1e9;
    double clear = 1e9;
    for (int round = 0; round < rounds; ++round) {
        PackageList packages;
        CatalogIndex index(packages, setting.order);
        ParsedIndex parsed = readIndex(setting.job(setting.gzip, Compression::Gzip));
        merge = std::min(merge, millisecondsOf([&] { index.merge(std::move(parsed)); }));
        sort = std::min(sort, millisecondsOf([&] { index.packagesByName(); }));
        clear = std::min(clear, millisecondsOf([&] { index.clear(); }));
    }
    print("catalog.merge", merge, "ms");
    print("catalog.first_order_by_name", sort, "ms");
    print("catalog.clear", clear, "ms");
}

void measureQueries(RepoManager& manager)
{
    PackageVector shuffled = manager.packages().all();
    std::reverse(shuffled.begin(), shuffled.end());
    print("catalog.sort_all_by_name", bestOf([&] {
        PackageVector packages = shuffled;
        manager.sortByName(packages);
    }),
        "ms");
    for (const char* query : { "e", "lib", "python", "zzz", "tool manager" }) {
        const QString text = QString::fromLatin1(query);
        const double time = bestOf([&] {
            manager.filteredPackagesWithQuery(QStringLiteral("\u2603"));
            manager.filteredPackagesWithQuery(text);
        });
        const QByteArray name = "catalog.keystroke_" + QByteArray(query).replace(' ', '_');
        print(name.constData(), time, "ms");
    }
    print("catalog.same_query_again", bestOf([&] { manager.filteredPackagesWithQuery(QStringLiteral("lib")); }), "ms");
    print("catalog.categories", bestOf([&] { manager.categories(); }), "ms");
    print("catalog.packages_of_category", bestOf([&] { manager.packagesForCategory(QStringLiteral("tools")); }), "ms");
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
    print("catalog.memory_records", (heapInUse() - before) / packageCount, "bytes/package");
    records = PackageVector();

    PackageList packages;
    CatalogIndex index(packages, setting.order);
    const double beforeAll = heapInUse();
    index.merge(readIndex(setting.job(setting.gzip, Compression::Gzip)));
    index.packagesByName();
    print("catalog.memory_with_search_and_order", (heapInUse() - beforeAll) / packageCount, "bytes/package");
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const Setting setting;
    measureMemory(setting);
    measureReading(setting);
    measureOtherBodies(setting);
    measureMainThread(setting);
    const auto manager = setting.manager();
    refreshAndWait(*manager);
    measureQueries(*manager);
    return 0;
}
