// A program that edits a stored list again and again, for tests of what is left of it when the program is killed:
//   source_edit_probe FILE FIRST LAST    stores the list of each generation and prints its number once it is stored
// A generation's list has twenty sources, each with the generation's number in its name.
#include "catalog/sources/JsonSourceStore.h"

#include <cstdio>

namespace {

std::vector<StoredSource> listOf(int generation)
{
    constexpr int length = 20;
    const QString name = QString::number(generation);
    return std::vector<StoredSource>(length, { QStringLiteral("https://example.org/"), name, true });
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 64;
    JsonSourceStore store(QString::fromLocal8Bit(argv[1]));
    const int last = QByteArray(argv[3]).toInt();
    for (int generation = QByteArray(argv[2]).toInt(); generation <= last; ++generation) {
        if (!store.setSources(listOf(generation)))
            return 1;
        std::printf("%d\n", generation);
        std::fflush(stdout);
    }
    return 0;
}
