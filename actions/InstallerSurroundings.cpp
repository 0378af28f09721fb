#include "actions/InstallerSurroundings.h"

#include "actions/DesktopURLOpener.h"
#include "catalog/sources/SourceRequest.h"

#include <QDir>

#include <unistd.h>

namespace {

constexpr std::int64_t largestArchive = std::int64_t(8) * 1024 * 1024 * 1024;

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
        .temporaryDirectory = QDir::tempPath() + QStringLiteral("/vesk-") + QString::number(geteuid()),
        .urlOpener = std::make_unique<DesktopURLOpener>(),
    };
}
