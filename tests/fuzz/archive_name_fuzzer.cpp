// Any identifier, version and source: the name of the archive leads out of no directory, and it is asked for at the
// source.
#include "actions/PackageDownload.h"
#include "actions/PrivateDirectory.h"
#include "catalog/records/RepositoryURL.h"
#include "tests/fuzz/Require.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdint>

namespace {

// What a system takes for one file of the directory.
void checkName(const QString& name)
{
    constexpr qsizetype longestName = 255;
    const QByteArray bytes = QFile::encodeName(name);
    require(!bytes.isEmpty() && bytes.size() <= longestName && !bytes.contains('/') && !bytes.contains('\0'));
    require(name != QLatin1String(".") && name != QLatin1String(".."));
    const QString directory = QStringLiteral("/a/b");
    require(QFileInfo(QDir::cleanPath(directory + u'/' + name)).path() == directory);
}

} // namespace

// The first line is the source, the next the identifier; the rest is the version.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString root = text.section(u'\n', 0, 0);
    VeskPackage package;
    package.setPackageID(text.section(u'\n', 1, 1));
    package.setVersion(text.section(u'\n', 2));
    const QString name = archiveName(package);
    if (isPlainFileName(name))
        checkName(name);
    const auto source = RepositoryURL::fromString(root);
    const QStringList urls = archiveURLs(root, name);
    require(urls.size() == 3);
    for (const QString& candidate : urls) {
        require(candidate.startsWith(root) && candidate.endsWith(name));
        const auto url = RepositoryURL::fromString(candidate);
        // What follows the source's host cannot change it.
        if (url && source && !source->host().isEmpty())
            require(url->host() == source->host());
    }
    return 0;
}
