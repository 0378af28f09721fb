#include "ui/screens/shell/InstanceLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace {

QString behindLinks(const QString& path)
{
    const QFileInfo file(path);
    QDir().mkpath(file.absolutePath());
    if (file.exists())
        return file.canonicalFilePath();
    const QString directory = QFileInfo(file.absolutePath()).canonicalFilePath();
    return (directory.isEmpty() ? file.absolutePath() : directory) + QLatin1Char('/') + file.fileName();
}

} // namespace

InstanceLock::InstanceLock(const QString& settingsFile)
    : m_settingsFile(behindLinks(settingsFile))
{
}

InstanceLock::State InstanceLock::acquire()
{
    const QByteArray name = QFile::encodeName(m_settingsFile + QStringLiteral(".lock"));
    if (!m_file.isOpen())
        m_file
            = FileDescriptor(::open(name.constData(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
    if (!m_file.isOpen())
        return State::Impossible;
    if (::flock(m_file.get(), LOCK_EX | LOCK_NB) == 0)
        return State::Held;
    return errno == EWOULDBLOCK ? State::HeldByAnother : State::Impossible;
}
