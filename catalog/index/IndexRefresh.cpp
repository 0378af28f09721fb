#include "catalog/index/IndexRefresh.h"

#include "catalog/sources/SourceRequest.h"
#include "catalog/work/MainThread.h"

#include <array>

namespace {

struct Candidate
{
    QLatin1String name;
    Compression compression = Compression::None;
};

// In the order in which they are asked for. There is no decoder for ".xz" and ".zst": what comes under those names is
// read as plain text.
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
    postToMainThread<IndexRefresh>(this, [](IndexRefresh& self) { self.attempt(0); });
}

IndexRefresh::~IndexRefresh()
{
    m_stop.request_stop();
}

void IndexRefresh::attempt(std::size_t index)
{
    if (index >= candidates.size()) {
        finish({});
        return;
    }
    if (const auto url = RepositoryURL::fromString(m_base + candidates[index].name))
        fetch(*url, index);
    else
        postToMainThread<IndexRefresh>(this, [index](IndexRefresh& self) { self.attempt(index + 1); });
}

void IndexRefresh::fetch(const RepositoryURL& url, std::size_t index)
{
    const QPointer<IndexRefresh> self(this);
    IndexJob job{ candidates[index].compression, m_repository, m_tools.statusPaths, m_tools.nameOrder, m_tools.limits };
    // On a worker.
    const auto read = [self, index](ParsedIndex parsed) {
        const auto kept = std::make_shared<ParsedIndex>(std::move(parsed));
        postToMainThread<IndexRefresh>(
            self, [kept, index](IndexRefresh& refresh) { refresh.acceptIndex(std::move(*kept), index); });
    };
    auto reading = std::make_unique<IndexReading>(std::move(job), m_tools.workers, m_stop.get_token(), read);
    m_receiver = std::make_shared<IndexReceiver>(std::move(reading));
    // On the network's thread.
    const auto ended = [self, receiver = m_receiver, index](const http::Outcome& outcome) {
        if (!receiver->finish(outcome))
            postToMainThread<IndexRefresh>(self, [index](IndexRefresh& refresh) { refresh.attempt(index + 1); });
    };
    m_tools.network.start(aimedAt(m_tools.request, url.url()), m_receiver, ended, m_stop.get_token());
}

void IndexRefresh::acceptIndex(ParsedIndex parsed, std::size_t index)
{
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
