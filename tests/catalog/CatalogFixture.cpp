#include "tests/catalog/CatalogFixture.h"
#include "http/Client.h"

#include <QFile>

#include <bzlib.h>
#include <zlib.h>

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
    z_stream stream{};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY);
    QByteArray packed(
        static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(text.size()))), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return packed;
}

QByteArray bzipped(const QByteArray& text)
{
    auto size = static_cast<unsigned>(text.size() + text.size() / 100 + 600);
    QByteArray packed(static_cast<qsizetype>(size), Qt::Uninitialized);
    BZ2_bzBuffToBuffCompress(
        packed.data(), &size, const_cast<char*>(text.data()), static_cast<unsigned>(text.size()), 9, 0, 0);
    packed.truncate(static_cast<qsizetype>(size));
    return packed;
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
