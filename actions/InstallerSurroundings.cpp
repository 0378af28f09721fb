#include "actions/InstallerSurroundings.h"

#include "actions/DesktopURLOpener.h"
#include "catalog/sources/SourceRequest.h"

#include <QDir>
#include <QStandardPaths>

#include <unistd.h>

namespace {

constexpr std::int64_t largestArchive = std::int64_t(8) * 1024 * 1024 * 1024;

// The user's cache first: nobody else can make anything there. In the shared temporary directory another user may have
// taken the name already.
QStringList placesForArchives()
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return { cache + QStringLiteral("/vesk/archives"),
        QDir::tempPath() + QStringLiteral("/vesk-") + QString::number(geteuid()) };
}

} // namespace

http::Request InstallerSurroundings::standardRequest()
{
    http::Limits limits;
    limits.inactivity = std::chrono::seconds(30);
    limits.largestBody = largestArchive;
    return sourceRequest(limits);
}

InstallerSurroundings InstallerSurroundings::system()
{
    return {
        .dpkgPath = QStringLiteral("/usr/bin/dpkg"),
        .administrator = AdministratorPrograms::system(),
        .archiveDirectories = placesForArchives(),
        .urlOpener = std::make_unique<DesktopURLOpener>(),
    };
}
