#include "actions/AdministratorInstall.h"

#include "actions/process/ChildProcess.h"
#include "actions/process/FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

// pkexec's own: the question was dismissed, or it could not be asked.
constexpr int dismissed = 126;
constexpr int notAuthorized = 127;

} // namespace

AdministratorPrograms AdministratorPrograms::system()
{
    if (geteuid() == 0)
        return {};
    return { .pkexecPath = QStringLiteral("/usr/bin/pkexec"),
        .helperPath = QStringLiteral("/usr/libexec/vesk/install-package") };
}

bool AdministratorPrograms::arePresent() const
{
    return isExecutableFile(pkexecPath) && isExecutableFile(helperPath);
}

AdministratorInstall::AdministratorInstall(AdministratorPrograms programs)
    : m_programs(std::move(programs))
{
}

bool AdministratorInstall::install(const QString& path, const QByteArray& digest)
{
    if (m_isRefused)
        return false;
    const FileDescriptor archive(open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    if (!archive.isOpen())
        return false;
    // The agent of the desktop asks; pkexec's own would want a terminal.
    const QStringList arguments{ m_programs.pkexecPath, QStringLiteral("--disable-internal-agent"),
        m_programs.helperPath, QString::fromLatin1(digest) };
    const auto exitCode = exitCodeOfChildProcess(arguments, archive.get());
    m_isRefused = exitCode && (*exitCode == dismissed || *exitCode == notAuthorized);
    return exitCode == 0;
}
