#include "catalog/RepoManager.h"

#include "catalog/index/DpkgStatus.h"
#include "catalog/index/IndexParser.h"
#include "catalog/index/IndexRefresh.h"
#include "catalog/sources/DefaultSources.h"
#include "catalog/text/TextDecoding.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

// A text of no length where none may be missing.
QString textOrEmpty(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

} // namespace

RepoManager* RepoManager::sharedManager()
{
    static auto* const manager = [] {
        // The network and the workers have threads, which must not outlive what the process takes apart at its end.
        qAddPostRoutine([] {
            sharedManager()->dropRefreshes();
            sharedManager()->m_world.network.reset();
            sharedManager()->m_world.workers.reset();
        });
        return new RepoManager(CatalogWorld::real());
    }();
    return manager;
}

RepoManager::RepoManager(CatalogWorld world, QObject* parent)
    : QObject(parent)
    , m_world(std::move(world))
    , m_nameOrder(std::make_shared<const NameOrder>(m_world.collationLocale))
    , m_index(m_packages, m_nameOrder)
{
    if (QCoreApplication* application = QCoreApplication::instance())
        connect(application, &QCoreApplication::aboutToQuit, this, &RepoManager::dropRefreshes);
    loadSavedState();
}

// The refreshes go first: they stand on the network, which goes with the members.
RepoManager::~RepoManager()
{
    dropRefreshes();
}

// Workers that still read an index stop at their next step, so that nobody waits for them.
void RepoManager::dropRefreshes()
{
    qDeleteAll(findChildren<IndexRefresh*>(QString(), Qt::FindDirectChildrenOnly));
}

std::vector<VeskRepositoryPtr> RepoManager::defaultRepositories()
{
    return makeDefaultSources();
}

void RepoManager::loadDefaults()
{
    if (!m_repositories.empty())
        return;
    m_repositories = defaultRepositories();
    persistState();
}

void RepoManager::loadSavedState()
{
    const auto stored = m_world.store->sources();
    if (!stored || stored->empty()) {
        loadDefaults();
        persistState();
        return;
    }
    for (const StoredSource& source : *stored) {
        auto repository = std::make_shared<VeskRepository>();
        repository->setUrlString(source.url);
        repository->setName(source.name);
        repository->setEnabled(source.enabled);
        m_repositories.push_back(std::move(repository));
    }
}

void RepoManager::persistState()
{
    std::vector<StoredSource> sources;
    for (const VeskRepositoryPtr& repository : m_repositories)
        sources.push_back(
            { textOrEmpty(repository->urlString()), textOrEmpty(repository->name()), repository->enabled() });
    m_world.store->setSources(sources);
}

void RepoManager::emptyCatalog()
{
    std::shared_ptr<const void> held = m_index.clear();
    if (m_world.workers)
        m_world.workers->post([held = std::move(held)] {});
}

void RepoManager::removeRepository(const VeskRepositoryPtr& repository)
{
    if (!repository)
        return;
    // The argument may be an element of the very list.
    std::erase_if(m_repositories, [removed = repository.get()](const auto& each) { return each.get() == removed; });
    emptyCatalog();
    persistState();
}

void RepoManager::toggleRepository(const VeskRepositoryPtr& repository, bool enabled)
{
    if (repository)
        repository->setEnabled(enabled);
    persistState();
}

void RepoManager::addRepositoryWithURLString(const QString& urlString, const AddCompletion& completion)
{
    const auto report = [completion](bool success, const std::optional<RepositoryError>& error = std::nullopt) {
        if (completion)
            completion(success, error);
    };
    QString text = urlString.trimmed();
    if (text.isEmpty())
        return report(false, RepositoryError::invalidURL());
    if (!text.startsWith(QLatin1String("http")))
        text.prepend(QLatin1String("https://"));
    const auto url = RepositoryURL::fromString(text);
    if (!url || url->scheme().isEmpty())
        return report(false, RepositoryError::invalidURL());
    const bool isKnown = std::any_of(m_repositories.begin(), m_repositories.end(),
        [&text](const VeskRepositoryPtr& known) { return known->urlString() == text; });
    if (isKnown)
        return report(true);
    const auto repository = VeskRepository::repositoryWithURLString(text, url->host());
    m_repositories.push_back(repository);
    persistState();
    refreshRepository(repository, [report] { report(true); });
}

void RepoManager::refreshAllWithCompletion(const Completion& completion)
{
    setIsLoading(true);
    setErrorMessage(QString());
    emptyCatalog();
    std::vector<VeskRepositoryPtr> enabled;
    std::copy_if(m_repositories.begin(), m_repositories.end(), std::back_inserter(enabled),
        [](const VeskRepositoryPtr& repository) { return repository->enabled(); });
    const auto finish = [this, completion] {
        setIsLoading(false);
        if (completion)
            completion();
    };
    if (enabled.empty())
        return finish();
    const auto completed = std::make_shared<std::size_t>(0);
    const auto countOne = [this, completed, finish, total = enabled.size()] {
        if (++*completed >= total)
            QMetaObject::invokeMethod(this, finish, Qt::QueuedConnection);
    };
    for (const VeskRepositoryPtr& repository : enabled)
        refreshRepository(repository, countOne);
}

void RepoManager::refreshRepository(const VeskRepositoryPtr& repository, const Completion& completion)
{
    const auto report = [completion] {
        if (completion)
            completion();
    };
    const auto root = repository ? repository->url() : std::nullopt;
    if (!root) {
        setErrorMessage(QStringLiteral("Invalid repository URL"));
        return report();
    }
    const auto done = [this, repository, report](ParsedIndex index) {
        if (index.packages.empty()) {
            setErrorMessage(QStringLiteral("Could not fetch repository packages"));
        } else {
            repository->setLastRefresh(QDateTime::currentDateTime());
            m_index.merge(std::move(index));
        }
        report();
    };
    const IndexRefresh::Tools tools{ *m_world.network, *m_world.workers, m_world.indexRequest, m_world.statusPaths,
        m_nameOrder, m_world.limits.within(freeMemory()) };
    new IndexRefresh(repository, *root, tools, done, this);
}

PackageVector RepoManager::parsePackages(const QString& text, const VeskRepositoryPtr& repository) const
{
    const DpkgStatus status = DpkgStatus::read(m_world.statusPaths);
    IndexParser parser(repository, status);
    parser.feed(viewOf(text.toUtf8()));
    return parser.finish();
}

QString RepoManager::installedVersionForPackage(const QString& packageID) const
{
    const DpkgStatus status = DpkgStatus::read(m_world.statusPaths);
    const auto version = packageID.isNull() ? std::nullopt : status.versionOf(viewOf(packageID.toUtf8()));
    return version ? textOf(*version) : QString();
}

PackageSelection RepoManager::filteredPackagesWithQuery(const QString& query)
{
    return m_index.packagesMatching(query);
}

PackageSelection RepoManager::packagesForCategory(const QString& name) const
{
    if (name.isNull())
        return {};
    const QByteArray section = name.toUtf8();
    PackageSelection::Places places;
    for (std::uint32_t place = 0; place < m_packages.size(); ++place) {
        if (m_packages[place]->utf8(VeskPackage::Text::Section) == viewOf(section))
            places.push_back(place);
    }
    return { m_packages.shared(), std::make_shared<const PackageSelection::Places>(std::move(places)) };
}

std::vector<VeskCategoryPtr> RepoManager::categories()
{
    std::vector<VeskCategoryPtr> categories;
    for (const SectionSize& section : m_index.sections())
        categories.push_back(VeskCategory::categoryWithName(textOf(section.name), section.count));
    return categories;
}

std::size_t RepoManager::categoryCount()
{
    return m_index.sections().size();
}

VeskCategoryPtr RepoManager::categoryAt(std::size_t row)
{
    const std::vector<SectionSize>& sections = m_index.sections();
    if (row >= sections.size())
        return nullptr;
    return VeskCategory::categoryWithName(textOf(sections[row].name), sections[row].count);
}

PackageSelection RepoManager::packagesSortedByName()
{
    return m_index.packagesByName();
}

PackageSelection RepoManager::firstPackagesByName(std::size_t count)
{
    return m_index.firstByName(count);
}

PackageSelection RepoManager::installedPackagesSortedByName()
{
    return m_index.installedByName();
}

void RepoManager::sortByName(PackageSelection& packages)
{
    m_index.sortByName(packages);
}
