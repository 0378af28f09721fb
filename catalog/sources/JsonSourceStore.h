#pragma once

#include "catalog/sources/SourceStore.h"

#include <QJsonObject>

// The list of sources in one small JSON file, under one key; the file's other keys are left as they are.
// A file that cannot be read as such is kept beside itself under a new name before anything is written, so nothing in
// it is lost; when that cannot be done, nothing is written.
class JsonSourceStore : public SourceStore
{
public:
    explicit JsonSourceStore(QString path);
    // "vesk/defaults.json" under the XDG configuration directory.
    static QString standardPath();

    std::optional<std::vector<StoredSource>> sources() const override;
    bool setSources(const std::vector<StoredSource>& sources) override;

private:
    enum class FileState { Absent, Readable, ListDamaged, Unreadable };
    struct Contents
    {
        FileState state = FileState::Absent;
        QJsonObject root;
    };

    Contents read() const;
    bool keepAside(FileState state) const;
    bool write(const QJsonObject& root) const;

    QString m_path;
};
