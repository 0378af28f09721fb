#include "tests/catalog/sources/FaultyDisk.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString kindOf(int file)
{
    struct stat status
    {
    };
    return ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode) ? QStringLiteral("directory")
                                                                  : QStringLiteral("file");
}

QString purposeOf(int flags)
{
    if (flags & O_DIRECTORY)
        return QStringLiteral("open directory");
    return (flags & O_ACCMODE) == O_RDONLY ? QStringLiteral("open to read") : QStringLiteral("open to write");
}

} // namespace

FaultyDisk::FaultyDisk(std::shared_ptr<DiskRecord> record)
    : m_record(std::move(record))
{
}

int FaultyDisk::open(const char* path, int flags, mode_t mode)
{
    return passes(purposeOf(flags)) ? FileOperations::open(path, flags, mode) : -1;
}

ssize_t FaultyDisk::read(int file, void* bytes, std::size_t size)
{
    if (m_record->atReading)
        m_record->atReading();
    if (isInterrupted() || !passes(QStringLiteral("read")))
        return -1;
    const auto place = static_cast<std::size_t>(::lseek(file, 0, SEEK_CUR));
    m_record->furthestRead = std::max(m_record->furthestRead, place + size);
    return FileOperations::read(file, bytes, std::min(size, m_record->largestPiece));
}

ssize_t FaultyDisk::write(int file, const void* bytes, std::size_t size)
{
    if (isInterrupted() || !passes(QStringLiteral("write")))
        return -1;
    return FileOperations::write(file, bytes, std::min(size, m_record->largestPiece));
}

int FaultyDisk::fsync(int file)
{
    return passes(QStringLiteral("fsync ") + kindOf(file)) ? FileOperations::fsync(file) : -1;
}

// A descriptor is gone even when closing it fails.
int FaultyDisk::close(int file)
{
    const bool isGood = passes(QStringLiteral("close ") + kindOf(file));
    const int error = errno;
    FileOperations::close(file);
    errno = error;
    return isGood ? 0 : -1;
}

int FaultyDisk::rename(const char* from, const char* to)
{
    if (m_record->atRenaming)
        m_record->atRenaming(from);
    return passes(QStringLiteral("rename")) ? FileOperations::rename(from, to) : -1;
}

bool FaultyDisk::passes(const QString& call)
{
    m_record->calls.append(call);
    if (!m_record->failing.contains(call))
        return true;
    errno = m_record->error;
    return false;
}

bool FaultyDisk::isInterrupted()
{
    if (m_record->interruptions == 0)
        return false;
    --m_record->interruptions;
    errno = EINTR;
    return true;
}
