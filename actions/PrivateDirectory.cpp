#include "actions/PrivateDirectory.h"

#include <QFile>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

namespace {

constexpr mode_t privateMode = 0700;
constexpr mode_t permissionBits = 07777;
constexpr qsizetype longestFileName = 255;
constexpr int nameAttempts = 8;

bool isOurs(const struct stat& information)
{
    return S_ISDIR(information.st_mode) && information.st_uid == geteuid();
}

// A directory of ours with a wider mode is narrowed: what others may have left in it is never followed nor read.
bool makePrivate(int directory)
{
    struct stat information = {};
    if (fstat(directory, &information) != 0 || !isOurs(information))
        return false;
    return (information.st_mode & permissionBits) == privateMode || fchmod(directory, privateMode) == 0;
}

// What cannot be made shows when the directory itself is.
void makeParents(const QString& path)
{
    for (qsizetype slash = path.indexOf(u'/', 1); slash > 0; slash = path.indexOf(u'/', slash + 1))
        mkdir(QFile::encodeName(path.left(slash)).constData(), privateMode);
}

QByteArray unpredictableName()
{
    QRandomGenerator* const random = QRandomGenerator::system();
    return ".partial-" + QByteArray::number(random->generate64(), 16) + QByteArray::number(random->generate64(), 16);
}

} // namespace

bool isPlainFileName(const QString& name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") && !name.contains(u'/')
        && !name.contains(QChar(u'\0')) && QFile::encodeName(name).size() <= longestFileName;
}

PartialFile::PartialFile(int directory, QByteArray name, FileDescriptor file)
    : m_directory(directory)
    , m_name(std::move(name))
    , m_file(std::move(file))
{
}

PartialFile::~PartialFile()
{
    if (m_file.isOpen())
        unlinkat(m_directory, m_name.constData(), 0);
}

bool PartialFile::write(const char* bytes, qint64 length)
{
    while (length > 0) {
        const ssize_t written = ::write(m_file.get(), bytes, static_cast<size_t>(length));
        if (written < 0 && errno != EINTR)
            return false;
        const ssize_t advance = written < 0 ? 0 : written;
        bytes += advance;
        length -= advance;
    }
    return true;
}

bool PartialFile::moveTo(const QString& name)
{
    const bool isWhole = m_file.close();
    const bool isMoved = isWhole && isPlainFileName(name)
        && renameat(m_directory, m_name.constData(), m_directory, QFile::encodeName(name).constData()) == 0;
    if (!isMoved)
        unlinkat(m_directory, m_name.constData(), 0);
    return isMoved;
}

PrivateDirectory::PrivateDirectory(QString path, FileDescriptor directory)
    : m_path(std::move(path))
    , m_directory(std::move(directory))
{
}

std::optional<PrivateDirectory> PrivateDirectory::openFirst(const QStringList& paths)
{
    for (const QString& path : paths) {
        makeParents(path);
        if (auto directory = open(path); directory && directory->isWritable())
            return directory;
    }
    return std::nullopt;
}

// Where a file system can only be read, its directories open all the same.
bool PrivateDirectory::isWritable() const
{
    return faccessat(m_directory.get(), ".", W_OK | X_OK, AT_EACCESS) == 0;
}

std::optional<PrivateDirectory> PrivateDirectory::open(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    if (mkdir(name.constData(), privateMode) != 0 && errno != EEXIST)
        return std::nullopt;
    FileDescriptor directory(::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!directory.isOpen() || !makePrivate(directory.get()))
        return std::nullopt;
    return PrivateDirectory(path, std::move(directory));
}

std::unique_ptr<PartialFile> PrivateDirectory::makeFile() const
{
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    for (int attempt = 0; attempt < nameAttempts; ++attempt) {
        const QByteArray name = unpredictableName();
        FileDescriptor file(openat(m_directory.get(), name.constData(), flags, 0600));
        if (file.isOpen())
            return std::unique_ptr<PartialFile>(new PartialFile(m_directory.get(), name, std::move(file)));
        if (errno != EEXIST)
            return nullptr;
    }
    return nullptr;
}
