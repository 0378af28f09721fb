#include "actions/HandOff.h"

#include "catalog/records/RepositoryURL.h"

QStringList handOffURLs(const VeskPackage& package)
{
    const QString identifier = package.packageID();
    const auto url = package.repository() ? package.repository()->url() : std::nullopt;
    const QString host = url ? url->host() : QString();
    return {
        QStringLiteral("sileo://package/") + identifier,
        QStringLiteral("zbra://package/") + identifier,
        QStringLiteral("apt://") + host + u'/' + identifier,
        QStringLiteral("cydia://package/") + identifier,
    };
}

QStringList handOffURLs(const VeskRepository& repository)
{
    const QString& source = repository.urlString();
    return {
        QStringLiteral("sileo://source/") + source,
        QStringLiteral("zbra://sources/add/") + source,
        QStringLiteral("cydia://url/https://cydia.saurik.com/api/share#?source=") + source,
        QStringLiteral("apt://") + source,
    };
}

void openFirstURL(const QStringList& urls, URLOpener& opener)
{
    for (const QString& url : urls) {
        if (RepositoryURL::fromString(url) && opener.canOpenURL(url)) {
            opener.openURL(url);
            return;
        }
    }
}
