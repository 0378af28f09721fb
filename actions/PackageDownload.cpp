#include "actions/PackageDownload.h"

#include "actions/ArchiveRequest.h"
#include "actions/PrivateDirectory.h"
#include "catalog/index/WebRequest.h"
#include "catalog/records/RepositoryURL.h"

#include <utility>

QString archiveName(const VeskPackage& package)
{
    return package.packageID() + u'_' + package.version() + QStringLiteral("_iphoneos-arm.deb");
}

QStringList archiveURLs(const QString& root, const QString& name)
{
    const QString base = root.endsWith(u'/') ? root : root + u'/';
    return { base + QStringLiteral("debs/") + name, base + QStringLiteral("pool/") + name, base + name };
}

PackageDownload::PackageDownload(QStringList directories, const DownloadLimits& limits)
    : m_directories(std::move(directories))
    , m_limits(limits)
{
}

QString PackageDownload::download(const VeskPackagePtr& package, const std::stop_token& stop)
{
    if (!package || !package->repository())
        return {};
    const QString name = archiveName(*package);
    const auto directory = PrivateDirectory::openFirst(m_directories);
    const bool isWritable = directory && isPlainFileName(name);
    ArchiveRequest request(m_manager, m_limits);
    for (const QString& candidate : archiveURLs(package->repository()->urlString(), name)) {
        const auto url = RepositoryURL::fromString(candidate);
        if (!url || !isWebURL(url->url()) || stop.stop_requested())
            continue;
        auto file = request.fetch(url->url(), isWritable ? &*directory : nullptr, stop);
        if (file && file->moveTo(name))
            return directory->pathOf(name);
    }
    return {};
}
