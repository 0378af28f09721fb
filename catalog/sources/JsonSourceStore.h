#pragma once

#include "catalog/sources/DurableFile.h"
#include "catalog/sources/SourceStore.h"

#include <QJsonObject>

#include <memory>

// The list of sources in one small JSON file, under one key; the file's other keys are left as they are.
// What was read and is no such file is kept beside itself under a new name before anything is written, so nothing in
// it is lost; when that cannot be done, nothing is written. A file that cannot be read is no damaged one: it is left
// alone, and as long as the last call of sources() found it so, nothing is written in its place.
class JsonSourceStore : public SourceStore
{
public:
    explicit JsonSourceStore(QString path);
    JsonSourceStore(QString path, std::unique_ptr<FileOperations> files);
    // "vesk/defaults.json" under the XDG configuration directory.
    static QString standardPath();

    std::optional<std::vector<StoredSource>> sources() const override;
    // A list that would make a file larger than one that is read is not written either.
    bool setSources(const std::vector<StoredSource>& sources) override;

private:
    enum class FileState { Absent, Sound, ListDamaged, Damaged, Unreadable };
    struct Contents
    {
        FileState state = FileState::Absent;
        QJsonObject root;
        // As they stand in the file.
        QByteArray bytes;
    };

    Contents read() const;
    bool keepAside(const Contents& contents) const;

    QString m_path;
    std::unique_ptr<FileOperations> m_files;
    DurableFile m_file;
    // The list in memory was not made from the file, which may be sound: to write it would lose the file's own, even
    // when that can be read again by then.
    mutable bool m_isLeftAlone = false;
};
