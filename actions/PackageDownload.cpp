#include "PackageDownload.h"

#include "ArchiveRequest.h"
#include "PrivateDirectory.h"
#include "RepositoryURL.h"

#include <utility>

namespace {

// What is not fetched over the network is no source of archives.
std::optional<QUrl> requestableURL(const QString& text)
{
    const auto url = RepositoryURL::fromString(text);
    if (!url || (url->scheme() != QLatin1String("http") && url->scheme() != QLatin1String("https")))
        return std::nullopt;
    return url->url();
}

} // namespace

QString archiveName(const VeskPackage& package)
{
    return package.packageID() + u'_' + package.version() + QStringLiteral("_iphoneos-arm.deb");
}

QStringList archiveURLs(const QString& root, const QString& name)
{
    const QString base = root.endsWith(u'/') ? root : root + u'/';
    return { base + QStringLiteral("debs/") + name, base + QStringLiteral("pool/") + name, base + name };
}

PackageDownload::PackageDownload(QString directory, const DownloadLimits& limits)
    : m_directory(std::move(directory))
    , m_limits(limits)
{
}

QString PackageDownload::download(const VeskPackagePtr& package, const std::stop_token& stop)
{
    if (!package || !package->repository())
        return {};
    const QString name = archiveName(*package);
    const auto directory = PrivateDirectory::open(m_directory);
    const bool isWritable = directory && isPlainFileName(name);
    ArchiveRequest request(m_manager, m_limits);
    for (const QString& candidate : archiveURLs(package->repository()->urlString(), name)) {
        const auto url = requestableURL(candidate);
        if (!url || stop.stop_requested())
            continue;
        auto file = request.fetch(*url, isWritable ? &*directory : nullptr, stop);
        if (file && file->moveTo(name))
            return directory->pathOf(name);
    }
    return {};
}
