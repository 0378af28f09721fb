#include "tests/catalog/CatalogFixture.h"
#include "http/Client.h"
#include "tests/support/Packing.h"

#include <QFile>

void CatalogFixture::writeStatus(const QByteArray& contents) const
{
    QFile file(statusPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(contents), contents.size());
}

CatalogWorld CatalogFixture::world() const
{
    CatalogWorld world;
    world.store = std::make_unique<MemorySourceStore>(m_store);
    world.statusPaths = { statusPath() };
    world.network = std::make_unique<http::Client>();
    world.workers = std::make_shared<Workers>();
    world.collationLocale = QStringLiteral("en");
    return world;
}

RepoManager& CatalogFixture::manager()
{
    if (m_manager)
        return *m_manager;
    const bool hasSources = m_store->stored.has_value();
    m_manager = std::make_unique<RepoManager>(world());
    if (!hasSources)
        m_manager->repositories().clear();
    return *m_manager;
}

VeskRepositoryPtr CatalogFixture::addSource(const QString& urlString)
{
    auto source = VeskRepository::repositoryWithURLString(urlString, QStringLiteral("Source"));
    manager().repositories().push_back(source);
    return source;
}

bool CatalogFixture::refreshAll()
{
    bool isDone = false;
    manager().refreshAllWithCompletion([&isDone] { isDone = true; });
    return QTest::qWaitFor([&isDone] { return isDone; }, patience);
}

bool CatalogFixture::refresh(const VeskRepositoryPtr& repository)
{
    bool isDone = false;
    manager().refreshRepository(repository, [&isDone] { isDone = true; });
    return QTest::qWaitFor([&isDone] { return isDone; }, patience);
}

QStringList CatalogFixture::packageIDs()
{
    return idsOf(manager().packages());
}

QByteArray gzipped(const QByteArray& text)
{
    return QByteArray::fromStdString(gzipped(std::string_view(text)));
}

QByteArray bzipped(const QByteArray& text)
{
    return QByteArray::fromStdString(bzipped(std::string_view(text)));
}

QByteArray stanza(const QByteArray& packageID)
{
    return "Package: " + packageID + "\n\n";
}

QStringList idsOf(const PackageSelection& packages)
{
    QStringList ids;
    for (const VeskPackagePtr& package : packages)
        ids.append(package->packageID());
    return ids;
}

QStringList namesOf(const PackageSelection& packages)
{
    QStringList names;
    for (const VeskPackagePtr& package : packages)
        names.append(package->name());
    return names;
}

VeskPackagePtr makePackage(const QString& packageID, const QString& name)
{
    auto package = std::make_shared<VeskPackage>();
    package->setPackageID(packageID);
    package->setName(name.isNull() ? packageID : name);
    return package;
}
