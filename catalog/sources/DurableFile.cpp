#include "catalog/sources/DurableFile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t permissions = 07777;
constexpr mode_t usualMode = 0666;

// The file a link leads to is the one that is replaced: the link stays.
QString behindLinks(const QString& path)
{
    const QString target = QFileInfo(path).canonicalFilePath();
    return target.isEmpty() ? path : target;
}

} // namespace

DurableFile::DurableFile(QString path, FileOperations& files)
    : m_path(std::move(path))
    , m_files(files)
{
}

DurableFile::Reading DurableFile::read(qint64 largestSize) const
{
    const QByteArray path = QFile::encodeName(m_path);
    struct stat status
    {
    };
    if (::stat(path.constData(), &status) != 0) {
        const bool isNothingThere = errno == ENOENT && ::lstat(path.constData(), &status) != 0 && errno == ENOENT;
        return { isNothingThere ? Presence::Absent : Presence::Unreadable, {} };
    }
    // Anything but a plain file (a pipe, say) could block for ever when it is opened.
    if (!S_ISREG(status.st_mode) || status.st_size > largestSize)
        return { Presence::Unsuitable, {} };
    const int file = m_files.open(path.constData(), O_RDONLY | O_CLOEXEC, 0);
    if (file < 0)
        return { Presence::Unreadable, {} };
    Reading reading = readOpened(file, status.st_size);
    m_files.close(file);
    return reading;
}

DurableFile::Reading DurableFile::readOpened(int file, qint64 size) const
{
    QByteArray contents(static_cast<qsizetype>(size), Qt::Uninitialized);
    qsizetype end = 0;
    while (end < contents.size()) {
        const ssize_t count
            = m_files.read(file, contents.data() + end, static_cast<std::size_t>(contents.size() - end));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return { Presence::Unreadable, {} };
        if (count == 0)
            break;
        end += count;
    }
    contents.truncate(end);
    return { Presence::Read, contents };
}

bool DurableFile::replace(const QByteArray& contents) const
{
    const QString path = behindLinks(m_path);
    const UnfinishedFiles unfinished(path);
    // First: they may take the very room that is needed now.
    unfinished.removeAbandoned();
    const QString newPath = unfinished.newPath();
    const QByteArray newName = QFile::encodeName(newPath);
    UnfinishedFiles::Claim claim;
    if (!writeNew(newPath, contents, claim))
        return false;
    if (m_files.rename(newName.constData(), QFile::encodeName(path).constData()) != 0) {
        ::unlink(newName.constData());
        return false;
    }
    return syncDirectory(QFileInfo(path).absolutePath());
}

bool DurableFile::moveTo(const QString& path) const
{
    return m_files.rename(QFile::encodeName(m_path).constData(), QFile::encodeName(path).constData()) == 0;
}

// A file of the same permissions as the one it is to replace. Who may not write that one may not replace it either.
bool DurableFile::writeNew(const QString& path, const QByteArray& contents, UnfinishedFiles::Claim& claim) const
{
    const QByteArray oldName = QFile::encodeName(behindLinks(m_path));
    const QByteArray newName = QFile::encodeName(path);
    struct stat old
    {
    };
    const bool hasOld = ::stat(oldName.constData(), &old) == 0;
    if (hasOld && ::access(oldName.constData(), W_OK) != 0)
        return false;
    const mode_t mode = hasOld ? old.st_mode & permissions : usualMode;
    const int file = m_files.open(newName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (file < 0)
        return false;
    bool isWritten = claim.take(file, newName) && (!hasOld || ::fchmod(file, mode) == 0);
    isWritten = isWritten && writeAll(file, contents) && m_files.fsync(file) == 0;
    // A network's disk may tell only now that there was no room.
    isWritten = m_files.close(file) == 0 && isWritten;
    if (!isWritten)
        ::unlink(newName.constData());
    return isWritten;
}

bool DurableFile::writeAll(int file, const QByteArray& contents) const
{
    qsizetype begin = 0;
    while (begin < contents.size()) {
        const ssize_t count
            = m_files.write(file, contents.constData() + begin, static_cast<std::size_t>(contents.size() - begin));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        begin += count;
    }
    return true;
}

// The file's bytes are on the disk; its name is in the directory.
bool DurableFile::syncDirectory(const QString& path) const
{
    const int directory = m_files.open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (directory < 0)
        return false;
    const bool isSynced = m_files.fsync(directory) == 0;
    m_files.close(directory);
    return isSynced;
}
