#include "catalog/sources/JsonSourceStore.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

const QString sourcesKey = QStringLiteral("VeskDefaultRepos_v1");
const QString urlKey = QStringLiteral("url");
const QString nameKey = QStringLiteral("name");
const QString enabledKey = QStringLiteral("enabled");

// A list of sources is some hundred bytes each; what is larger than this was not written here and is not read into
// memory.
constexpr qint64 maximumFileSize = qint64(8) * 1024 * 1024;

QString textOf(const QJsonValue& value)
{
    return value.isString() && !value.toString().isNull() ? value.toString() : QStringLiteral("");
}

bool flagOf(const QJsonValue& value)
{
    return value.isDouble() ? value.toDouble() != 0.0 : value.toBool(false);
}

// An element of any other kind has none of the three entries, and so becomes an empty, disabled source.
StoredSource sourceOf(const QJsonValue& element)
{
    const QJsonObject entries = element.toObject();
    return { textOf(entries.value(urlKey)), textOf(entries.value(nameKey)), flagOf(entries.value(enabledKey)) };
}

QJsonArray listOf(const std::vector<StoredSource>& sources)
{
    QJsonArray list;
    for (const StoredSource& source : sources)
        list.append(QJsonObject{ { urlKey, source.url }, { nameKey, source.name }, { enabledKey, source.enabled } });
    return list;
}

// QSaveFile brings the file to the disk but not its directory entry.
void syncDirectory(const QString& path)
{
    const int directory = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory < 0)
        return;
    ::fsync(directory);
    ::close(directory);
}

bool somethingStandsAt(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

QString freeNameBeside(const QString& path)
{
    const QString stamp = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd'T'HHmmss"));
    const QString stem = path + QStringLiteral(".unreadable-") + stamp;
    QString name = stem;
    for (int number = 2; somethingStandsAt(name); ++number)
        name = stem + QLatin1Char('-') + QString::number(number);
    return name;
}

} // namespace

JsonSourceStore::JsonSourceStore(QString path)
    : m_path(std::move(path))
{
}

QString JsonSourceStore::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/vesk/defaults.json");
}

std::optional<std::vector<StoredSource>> JsonSourceStore::sources() const
{
    const QJsonValue stored = read().root.value(sourcesKey);
    if (!stored.isArray())
        return std::nullopt;
    std::vector<StoredSource> sources;
    for (const QJsonValue element : stored.toArray())
        sources.push_back(sourceOf(element));
    return sources;
}

bool JsonSourceStore::setSources(const std::vector<StoredSource>& sources)
{
    Contents contents = read();
    if (!keepAside(contents.state))
        return false;
    contents.root.insert(sourcesKey, listOf(sources));
    return write(contents.root);
}

JsonSourceStore::Contents JsonSourceStore::read() const
{
    if (!somethingStandsAt(m_path))
        return {};
    // Anything but a plain file (a pipe, say) could block for ever when it is opened.
    QFile file(m_path);
    if (!QFileInfo(m_path).isFile() || file.size() > maximumFileSize || !file.open(QIODevice::ReadOnly))
        return { FileState::Unreadable, {} };
    const QJsonDocument document = QJsonDocument::fromJson(file.read(maximumFileSize));
    if (!document.isObject())
        return { FileState::Unreadable, {} };
    const QJsonValue stored = document.object().value(sourcesKey);
    const bool isUsable = stored.isUndefined() || stored.isArray();
    return { isUsable ? FileState::Readable : FileState::ListDamaged, document.object() };
}

// A file that is no store at all makes way; one whose list alone is damaged is copied, for its other keys stay in use.
bool JsonSourceStore::keepAside(FileState state) const
{
    if (state == FileState::Unreadable)
        return ::rename(QFile::encodeName(m_path).constData(), QFile::encodeName(freeNameBeside(m_path)).constData())
            == 0;
    if (state == FileState::ListDamaged)
        return QFile::copy(m_path, freeNameBeside(m_path));
    return true;
}

bool JsonSourceStore::write(const QJsonObject& root) const
{
    const QString directory = QFileInfo(m_path).absolutePath();
    if (!QDir().mkpath(directory))
        return false;
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(QJsonDocument(root).toJson());
    if (!file.commit())
        return false;
    syncDirectory(directory);
    return true;
}
