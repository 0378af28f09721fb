// Measures the catalog without any window, on Debian's own index (about 63,000 packages; 63k in the names), on the same
// packages ten times (634k), and on the same with every field that Vesk knows (rich). One figure a line: name, value,
// unit. A refresh is all from a body in memory to the merged catalog, with search and order by name ready; ratios are
// against the library alone that decompresses the same body. Times are medians; what the main thread does is told as
// processor time.
#include "benchmarks/Figures.h"
#include "benchmarks/GeneratedIndex.h"
#include "benchmarks/IndexData.h"
#include "benchmarks/PackedBody.h"
#include "benchmarks/ProcessMemory.h"
#include "catalog/query/CatalogIndex.h"
#include "catalog/text/TextDecoding.h"
#include "tests/catalog/decode/DrivenDecoder.h"
#include "tests/catalog/index/ReadIndex.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <memory>
#include <optional>
#include <thread>

namespace {

constexpr int rounds = 9;
constexpr int slowRounds = 3;

// Both processors are kept busy with other work while it lives.
class OtherWork
{
public:
    OtherWork()
    {
        for (unsigned number = 0; number < std::thread::hardware_concurrency(); ++number)
            m_threads.emplace_back([](const std::stop_token& stop) {
                std::atomic<unsigned> counter = 0;
                while (!stop.stop_requested())
                    ++counter;
            });
    }

private:
    std::vector<std::jthread> m_threads;
};

// What a manager has of the catalog, without a network.
class Catalog
{
public:
    Catalog(VeskRepositoryPtr source, QString statusPath)
        : m_source(std::move(source))
        , m_statusPath(std::move(statusPath))
    {
    }

    ParsedIndex read(const QByteArray& body, Compression compression) const
    {
        return readIndex({ compression, m_source, { m_statusPath }, m_order, {} }, body, *m_workers);
    }
    // Waits for what the workers still let go of.
    void settle() { m_workers = std::make_unique<Workers>(); }
    void merge(ParsedIndex index) { m_index.merge(std::move(index)); }
    PackageSelection byName() { return m_index.packagesByName(); }
    qsizetype hitsOf(const QString& query) { return static_cast<qsizetype>(m_index.packagesMatching(query).size()); }
    void clear()
    {
        m_workers->post([held = m_index.clear()] {});
    }
    void refresh(const QByteArray& body, Compression compression)
    {
        clear();
        merge(read(body, compression));
        byName();
    }
    std::size_t size() const { return m_packages.size(); }

private:
    VeskRepositoryPtr m_source;
    QString m_statusPath;
    std::unique_ptr<Workers> m_workers = std::make_unique<Workers>();
    std::shared_ptr<const NameOrder> m_order = std::make_shared<const NameOrder>(QStringLiteral("en"));
    PackageList m_packages;
    CatalogIndex m_index{ m_packages, m_order };
};

// The outside world of the benchmark.
class Setting
{
public:
    Setting()
    {
        QFile status(statusPath());
        if (status.open(QIODevice::WriteOnly))
            status.write(generatedStatus(20000));
    }

    std::unique_ptr<Catalog> catalog() const { return std::make_unique<Catalog>(m_source, statusPath()); }

private:
    QString statusPath() const { return m_directory.filePath(QStringLiteral("status")); }

    QTemporaryDir m_directory;
    VeskRepositoryPtr m_source
        = VeskRepository::repositoryWithURLString(QStringLiteral("http://127.0.0.1/"), QStringLiteral("Measured"));
};

// Not to be asked for twice: the result of the last query is kept.
double worstKeystroke(Catalog& catalog)
{
    double worst = 0;
    for (const char* text : { "e", "i", "li", "th", "lib", "pyt", "python", "zzz", "interface", "tool manager",
             "development", "documentation" }) {
        const QString query = QString::fromLatin1(text);
        std::vector<double> times;
        for (int round = 0; round < rounds; ++round) {
            catalog.hitsOf(query.toUpper());
            times.push_back(processorTimeOf([&] { catalog.hitsOf(query); }));
        }
        worst = std::max(worst, medianOf(times));
    }
    return worst;
}

void measureReading(
    const Figures& figures, const Setting& setting, const QByteArray& text, const QByteArray& size, int count)
{
    if (!figures.areWanted("refresh_gz_over_inflate_" + size) && !figures.areWanted("refresh_gz_ms_" + size))
        return;
    const QByteArray gzip = packedByGzip(text);
    const auto catalog = setting.catalog();
    Comparison refresh;
    for (int round = 0; round < count; ++round) {
        const double floor = millisecondsOf([&] { inflateAlone(gzip); });
        refresh.addRound(floor, millisecondsOf([&] { catalog->refresh(gzip, Compression::Gzip); }));
    }
    figures.print("refresh_gz_ms_" + size, refresh.time(), "ms");
    figures.print("refresh_gz_over_inflate_" + size, refresh.ratio(), "ratio");
}

double costOfPackage(const Setting& setting, const QByteArray& text)
{
    const QByteArray gzip = packedByGzip(text);
    const auto catalog = setting.catalog();
    std::vector<double> times(slowRounds);
    std::generate(
        times.begin(), times.end(), [&] { return millisecondsOf([&] { catalog->refresh(gzip, Compression::Gzip); }); });
    return 1000 * medianOf(times) / packageCountOf(text);
}

void measureGrowth(const Figures& figures, const Setting& setting, const QByteArray& text)
{
    if (!figures.areWanted("cost_"))
        return;
    const double few = costOfPackage(setting, tenthOf(text));
    const double many = costOfPackage(setting, tenTimes(text));
    figures.print("cost_us_per_package_6k", few, "us");
    figures.print("cost_us_per_package_63k", costOfPackage(setting, text), "us");
    figures.print("cost_us_per_package_634k", many, "us");
    figures.print("cost_growth", many / few, "ratio");
}

void measureBzip2(const Figures& figures, const Setting& setting, const QByteArray& text)
{
    if (!figures.areWanted("refresh_bz2_"))
        return;
    const QByteArray bzip2 = packedByBzip2(text);
    const auto catalog = setting.catalog();
    const auto refresh = [&] { catalog->refresh(bzip2, Compression::Bzip2); };
    Comparison overBlocks;
    Comparison overBunzip;
    for (int round = 0; round < slowRounds; ++round) {
        const double time = millisecondsOf(refresh);
        overBlocks.addRound(millisecondsOf([&] { decodeWhole(bzip2, Compression::Bzip2); }), time);
        overBunzip.addRound(millisecondsOf([&] { bunzipAlone(bzip2); }), time);
    }
    figures.print("refresh_bz2_ms_63k", overBlocks.time(), "ms");
    figures.print("refresh_bz2_over_blocks", overBlocks.ratio(), "ratio");
    figures.print("refresh_bz2_over_bunzip", overBunzip.ratio(), "ratio");
    const OtherWork otherWork;
    Comparison underLoad;
    for (int round = 0; round < slowRounds; ++round)
        underLoad.addRound(millisecondsOf([&] { bunzipAlone(bzip2); }), millisecondsOf(refresh));
    figures.print("refresh_bz2_over_bunzip_under_load", underLoad.ratio(), "ratio");
}

void measureQueries(const Figures& figures, const Setting& setting, const QByteArray& text, const QByteArray& size)
{
    if (!figures.areWanted("search_keystroke_ms_" + size) && !figures.areWanted("main_thread_"))
        return;
    const auto catalog = setting.catalog();
    std::vector<double> merge;
    std::vector<double> order;
    std::vector<double> clear;
    for (int round = 0; round < slowRounds; ++round) {
        clear.push_back(processorTimeOf([&] { catalog->clear(); }));
        ParsedIndex index = catalog->read(text, Compression::None);
        merge.push_back(processorTimeOf([&] { catalog->merge(std::move(index)); }));
        order.push_back(processorTimeOf([&] { catalog->byName(); }));
    }
    figures.print("main_thread_merge_ms_" + size, medianOf(merge), "ms");
    figures.print("main_thread_first_order_ms_" + size, medianOf(order), "ms");
    figures.print("main_thread_clear_ms_" + size, medianOf(clear), "ms");
    figures.print("search_keystroke_ms_" + size, worstKeystroke(*catalog), "ms");
}

// The slowest of the locales.
void measureSorting(const Figures& figures, const Setting& setting, const QByteArray& text)
{
    if (!figures.areWanted("sort_over_inflate"))
        return;
    const PackageVector packages = setting.catalog()->read(text, Compression::None).packages;
    const QByteArray gzip = packedByGzip(text);
    double worst = 0;
    for (const char* locale : { "C", "C.UTF-8", "en_US", "de", "tr" }) {
        const NameOrder order(QString::fromLatin1(locale));
        Comparison sorting;
        for (int round = 0; round < rounds; ++round) {
            const PackageSelection shuffled(PackageVector(packages.rbegin(), packages.rend()));
            const double floor = millisecondsOf([&] { inflateAlone(gzip); });
            sorting.addRound(floor, millisecondsOf([&] { packagesByName(shuffled, order); }));
        }
        worst = std::max(worst, sorting.ratio());
    }
    figures.print("sort_over_inflate", worst, "ratio");
}

void measureMemory(const Figures& figures, const Setting& setting, const QByteArray& text, const QByteArray& kind)
{
    const QByteArray bytes = "bytes_per_package_" + kind;
    const QByteArray peak = "refresh_peak_over_index_" + kind;
    if (!figures.areWanted(bytes) && !figures.areWanted(peak))
        return;
    const QByteArray gzip = packedByGzip(text);
    const auto catalog = setting.catalog();
    catalog->refresh(packedByGzip(tenthOf(text)), Compression::Gzip);
    catalog->clear();
    catalog->settle();
    const double before = heapInUse();
    const double growth = peakGrowthDuring([&] { catalog->refresh(gzip, Compression::Gzip); });
    catalog->settle();
    figures.print(bytes, (heapInUse() - before) / static_cast<double>(catalog->size()), "bytes");
    figures.print(peak, growth / static_cast<double>(text.size()), "ratio");
}

void measureTheLargest(const Figures& figures, const Setting& setting, const QByteArray& text)
{
    const std::vector<QByteArray> names = { "bytes_per_package_634k", "refresh_peak_over_index_634k",
        "refresh_gz_ms_634k", "refresh_gz_over_inflate_634k", "main_thread_", "search_keystroke_ms_634k" };
    if (std::none_of(names.begin(), names.end(), [&](const QByteArray& name) { return figures.areWanted(name); }))
        return;
    const QByteArray large = tenTimes(text);
    measureMemory(figures, setting, large, "634k");
    measureReading(figures, setting, large, "634k", slowRounds);
    measureQueries(figures, setting, large, "634k");
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Figures figures(argc, argv);
    const Setting setting;
    const QByteArray text = realIndex();
    figures.print("index_packages", packageCountOf(text), "packages");
    measureMemory(figures, setting, text, "63k");
    measureMemory(figures, setting, withEveryField(text), "rich");
    measureReading(figures, setting, text, "63k", rounds);
    measureBzip2(figures, setting, text);
    measureQueries(figures, setting, text, "63k");
    measureSorting(figures, setting, text);
    measureTheLargest(figures, setting, text);
    measureGrowth(figures, setting, text);
    return 0;
}
