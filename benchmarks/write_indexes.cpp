// Writes the indexes that are measured as files, for programs that read files: 6k, 63k and 634k in the directory named.
#include "benchmarks/IndexData.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

bool write(const QDir& directory, const QString& name, const QByteArray& text)
{
    QFile file(directory.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: write-indexes DIRECTORY\n", stderr);
        return 2;
    }
    const QDir directory(QString::fromLocal8Bit(argv[1]));
    const QByteArray text = realIndex();
    const bool isWritten = write(directory, QStringLiteral("6k"), tenthOf(text))
        && write(directory, QStringLiteral("63k"), text) && write(directory, QStringLiteral("634k"), tenTimes(text));
    if (!isWritten)
        std::fprintf(stderr, "write-indexes: cannot write to %s\n", argv[1]);
    return isWritten ? 0 : 1;
}
