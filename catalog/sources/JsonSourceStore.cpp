#include "catalog/sources/JsonSourceStore.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

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
    : JsonSourceStore(std::move(path), std::make_unique<FileOperations>())
{
}

JsonSourceStore::JsonSourceStore(QString path, std::unique_ptr<FileOperations> files)
    : m_path(std::move(path))
    , m_files(std::move(files))
    , m_file(m_path, *m_files)
{
}

QString JsonSourceStore::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/vesk/defaults.json");
}

std::optional<std::vector<StoredSource>> JsonSourceStore::sources() const
{
    const Contents contents = read();
    m_isLeftAlone = contents.state == FileState::Unreadable;
    const QJsonValue stored = contents.root.value(sourcesKey);
    if (!stored.isArray())
        return std::nullopt;
    std::vector<StoredSource> sources;
    for (const QJsonValue element : stored.toArray())
        sources.push_back(sourceOf(element));
    return sources;
}

bool JsonSourceStore::setSources(const std::vector<StoredSource>& sources)
{
    if (m_isLeftAlone)
        return false;
    Contents contents = read();
    contents.root.insert(sourcesKey, listOf(sources));
    const QByteArray bytes = QJsonDocument(contents.root).toJson();
    // What would not be read again at the next start is no store.
    if (bytes.size() > maximumFileSize)
        return false;
    return QDir().mkpath(QFileInfo(m_path).absolutePath()) && keepAside(contents) && m_file.replace(bytes);
}

JsonSourceStore::Contents JsonSourceStore::read() const
{
    const DurableFile::Reading file = m_file.read(maximumFileSize);
    switch (file.presence) {
    case DurableFile::Presence::Absent:
        return {};
    case DurableFile::Presence::Unreadable:
        return { FileState::Unreadable, {}, {} };
    case DurableFile::Presence::Unsuitable:
        return { FileState::Damaged, {}, {} };
    case DurableFile::Presence::Read:
        break;
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.contents);
    if (!document.isObject())
        return { FileState::Damaged, {}, {} };
    const QJsonValue stored = document.object().value(sourcesKey);
    const bool isUsable = stored.isUndefined() || stored.isArray();
    return { isUsable ? FileState::Sound : FileState::ListDamaged, document.object(), file.contents };
}

// A file that is no store at all makes way; one whose list alone is damaged is copied, for its other keys stay in use.
bool JsonSourceStore::keepAside(const Contents& contents) const
{
    switch (contents.state) {
    case FileState::Absent:
    case FileState::Sound:
        return true;
    case FileState::ListDamaged:
        return DurableFile(freeNameBeside(m_path), *m_files).replace(contents.bytes);
    case FileState::Damaged:
        return m_file.moveTo(freeNameBeside(m_path));
    case FileState::Unreadable:
        break;
    }
    return false;
}
