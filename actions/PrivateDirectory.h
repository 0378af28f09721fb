#pragma once

#include "actions/process/FileDescriptor.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

// Whether the name can be a file's: not empty, not "." or "..", without a slash or a NUL, at most 255 bytes in UTF-8.
bool isPlainFileName(const QString& name);

// A file being written under a name that nobody can predict; it disappears unless it is given its final name.
class PartialFile
{
public:
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;
    ~PartialFile();

    // False when not every byte could be written, as on a full disk.
    bool write(const char* bytes, qint64 length);
    // Renames it, replacing what has that name; a symbolic link there is replaced itself. False leaves nothing behind.
    bool moveTo(const QString& name);

private:
    friend class PrivateDirectory;
    PartialFile(int directory, QByteArray name, FileDescriptor file);

    int m_directory;
    QByteArray m_name;
    FileDescriptor m_file;
};

// A directory that only this user can enter, held open. Any thread; it must outlive the files made in it.
class PrivateDirectory
{
public:
    // The first of the paths that can be opened and written to. Parents that are not there are made, for this user
    // alone.
    static std::optional<PrivateDirectory> openFirst(const QStringList& paths);
    // Makes the directory if it is not there (its parent must be). None when the path is a symbolic link or anything
    // else but a directory, belongs to another user, or cannot be given the mode 0700.
    static std::optional<PrivateDirectory> open(const QString& path);

    // Null when it cannot be made.
    std::unique_ptr<PartialFile> makeFile() const;
    QString pathOf(const QString& name) const { return m_path + u'/' + name; }

private:
    PrivateDirectory(QString path, FileDescriptor directory);
    bool isWritable() const;

    QString m_path;
    FileDescriptor m_directory;
};
