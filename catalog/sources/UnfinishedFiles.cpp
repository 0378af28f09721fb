#include "catalog/sources/UnfinishedFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int numberBase = 36;
// Digits of the largest number of 64 bits.
constexpr qsizetype longestNumber = 13;

bool isDigit(QChar character)
{
    return (character >= u'0' && character <= u'9') || (character >= u'a' && character <= u'z');
}

void removeUnlessClaimed(const QByteArray& path)
{
    // Only for writing can a file of another machine be locked like this. A pipe in its place would block.
    const int file = ::open(path.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return;
    struct stat status
    {
    };
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && ::flock(file, LOCK_EX | LOCK_NB) == 0)
        ::unlink(path.constData());
    ::close(file);
}

} // namespace

UnfinishedFiles::Claim::~Claim()
{
    if (m_file >= 0)
        ::close(m_file);
}

bool UnfinishedFiles::Claim::take(int file, const QByteArray& path)
{
    m_file = ::fcntl(file, F_DUPFD_CLOEXEC, 0);
    // Whoever else holds it is about to remove it.
    while (::flock(file, LOCK_EX) != 0 && errno == EINTR) { }
    return ::access(path.constData(), F_OK) == 0;
}

UnfinishedFiles::UnfinishedFiles(const QString& path)
    : m_directory(QFileInfo(path).absolutePath())
    , m_stem(QFileInfo(path).fileName() + QStringLiteral(".new-"))
{
}

QString UnfinishedFiles::newPath() const
{
    return m_directory + u'/' + m_stem + QString::number(QRandomGenerator::system()->generate64(), numberBase);
}

void UnfinishedFiles::removeAbandoned() const
{
    for (const QString& name : QDir(m_directory).entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks))
        if (isOne(name))
            removeUnlessClaimed(QFile::encodeName(m_directory + u'/' + name));
}

bool UnfinishedFiles::isOne(const QString& name) const
{
    const QStringView number = QStringView(name).mid(std::min(m_stem.size(), name.size()));
    return name.startsWith(m_stem) && !number.empty() && number.size() <= longestNumber
        && std::all_of(number.begin(), number.end(), isDigit);
}
