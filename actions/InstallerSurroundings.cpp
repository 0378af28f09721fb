#include "actions/InstallerSurroundings.h"

#include "actions/DesktopURLOpener.h"

#include <QDir>

#include <unistd.h>

InstallerSurroundings InstallerSurroundings::system()
{
    return {
        .dpkgPath = QStringLiteral("/usr/bin/dpkg"),
        .temporaryDirectory = QDir::tempPath() + QStringLiteral("/vesk-") + QString::number(geteuid()),
        .urlOpener = std::make_unique<DesktopURLOpener>(),
    };
}
