#include "catalog/index/IndexRefresh.h"

#include "catalog/records/RepositoryURL.h"
#include "catalog/text/TextDecoding.h"

#include <QCoreApplication>
#include <QPointer>

#include <array>

namespace {

struct Candidate
{
    QLatin1String name;
    Compression compression = Compression::None;
};

// A text under ".xz" or ".zst" is read as it comes: there is no decoder for these.
constexpr std::array<Candidate, 5> candidates{ {
    { QLatin1String("Packages.bz2"), Compression::Bzip2 },
    { QLatin1String("Packages.gz"), Compression::Gzip },
    { QLatin1String("Packages.xz"), Compression::None },
    { QLatin1String("Packages"), Compression::None },
    { QLatin1String("Packages.zst"), Compression::None },
} };

QString withSlashAtEnd(const QString& text)
{
    return text.endsWith(u'/') ? text : text + u'/';
}

} // namespace

IndexRefresh::IndexRefresh(
    VeskRepositoryPtr repository, const RepositoryURL& root, Tools tools, Done done, QObject* parent)
    : QObject(parent)
    , m_repository(std::move(repository))
    , m_base(withSlashAtEnd(root.absoluteString()))
    , m_tools(std::move(tools))
    , m_done(std::move(done))
{
    QMetaObject::invokeMethod(
        this, [this] { attempt(0); }, Qt::QueuedConnection);
}

IndexRefresh::~IndexRefresh() = default;

void IndexRefresh::attempt(std::size_t index)
{
    if (index >= candidates.size()) {
        finish({});
        return;
    }
    const auto url = RepositoryURL::fromString(m_base + candidates[index].name);
    if (!url) {
        QMetaObject::invokeMethod(
            this, [this, index] { attempt(index + 1); }, Qt::QueuedConnection);
        return;
    }
    const auto done = [this, index](std::optional<QByteArray> body) {
        if (body)
            read(*body, index);
        else
            QMetaObject::invokeMethod(
                this, [this, index] { attempt(index + 1); }, Qt::QueuedConnection);
    };
    m_download = std::make_unique<IndexDownload>(*m_tools.network, *url, m_tools.downloadLimits, done, nullptr);
}

void IndexRefresh::read(const QByteArray& body, std::size_t index)
{
    // The worker does not touch this object: it posts to the application, which outlives the workers, and the call
    // finds out on the main thread whether anybody still waits.
    const auto done = [self = QPointer<IndexRefresh>(this), index](ParsedIndex parsed) {
        const auto deliver = [self, index, parsed = std::make_shared<ParsedIndex>(std::move(parsed))] {
            if (self)
                self->acceptIndex(std::move(*parsed), index);
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), deliver, Qt::QueuedConnection);
    };
    IndexJob job{ candidates[index].compression, m_repository, m_tools.statusPaths, m_tools.nameOrder, m_tools.limits };
    m_reading = std::make_unique<IndexReading>(std::move(job), *m_tools.workers, m_tools.stop, done);
    m_reading->receive(viewOf(body));
    m_reading->finish();
}

void IndexRefresh::acceptIndex(ParsedIndex parsed, std::size_t index)
{
    m_reading.reset();
    if (parsed.packages.empty())
        attempt(index + 1);
    else
        finish(std::move(parsed));
}

void IndexRefresh::finish(ParsedIndex parsed)
{
    // Whoever is told may delete this, by way of the manager.
    const Done done = std::move(m_done);
    deleteLater();
    done(std::move(parsed));
}
