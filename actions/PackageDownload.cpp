#include "actions/PackageDownload.h"

#include "actions/ArchiveReceiver.h"
#include "actions/PrivateDirectory.h"
#include "catalog/records/RepositoryURL.h"
#include "catalog/sources/SourceRequest.h"
#include "http/Fetch.h"

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

PackageDownload::PackageDownload(QStringList directories, http::Request request)
    : m_directories(std::move(directories))
    , m_request(std::move(request))
{
}

QString PackageDownload::download(const VeskPackagePtr& package, const std::stop_token& stop)
{
    if (!package || !package->repository())
        return {};
    const QString name = archiveName(*package);
    const auto directory = PrivateDirectory::openFirst(m_directories);
    const bool isWritable = directory && isPlainFileName(name);
    for (const QString& candidate : archiveURLs(package->repository()->urlString(), name)) {
        const auto url = RepositoryURL::fromString(candidate);
        if (!url || stop.stop_requested())
            continue;
        ArchiveReceiver receiver(isWritable ? &*directory : nullptr);
        const auto outcome = http::fetch(aimedAt(m_request, url->url()), receiver, stop);
        const auto file = receiver.takeFile(outcome);
        m_digest = receiver.digest();
        if (file && file->moveTo(name))
            return directory->pathOf(name);
    }
    return {};
}
