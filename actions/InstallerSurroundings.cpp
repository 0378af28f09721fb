#include "actions/InstallerSurroundings.h"

#include "actions/DesktopURLOpener.h"

#include <QDir>
#include <QStandardPaths>

#include <unistd.h>

namespace {

// The user's cache first: nobody else can make anything there. In the shared temporary directory another user may have
// taken the name already.
QStringList placesForArchives()
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return { cache + QStringLiteral("/vesk/archives"),
        QDir::tempPath() + QStringLiteral("/vesk-") + QString::number(geteuid()) };
}

} // namespace

InstallerSurroundings InstallerSurroundings::system()
{
    return {
        .dpkgPath = QStringLiteral("/usr/bin/dpkg"),
        .archiveDirectories = placesForArchives(),
        .urlOpener = std::make_unique<DesktopURLOpener>(),
    };
}
