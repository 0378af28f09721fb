// Any bytes as the stored file: it is read without a crash, and after a write nothing of it is lost.
#include "catalog/sources/JsonSourceStore.h"
#include "tests/fuzz/Require.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

namespace {

void write(const QString& path, const QByteArray& contents)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("defaults.json"));
    const QByteArray contents(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    write(path, contents);
    JsonSourceStore store(path);
    const auto sources = store.sources();
    const std::vector<StoredSource> kept = sources.value_or(std::vector<StoredSource>());
    require(store.setSources(kept) && store.sources() == kept);
    const bool isStore = QJsonDocument::fromJson(contents).isObject();
    require(isStore || QDir(directory.path()).entryList(QDir::Files).size() == 2);
    return 0;
}
