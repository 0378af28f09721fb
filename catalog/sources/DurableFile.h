#pragma once

#include "catalog/sources/FileOperations.h"
#include "catalog/sources/UnfinishedFiles.h"

#include <QByteArray>
#include <QString>

// A small file that is read whole, and replaced whole: whatever happens, either its old contents stand under its name
// or its new ones, never a part of them. Used on one thread at a time; nothing throws.
class DurableFile
{
public:
    enum class Presence {
        Absent,
        // What it holds has been read.
        Read,
        // It is no plain file, or larger than it may be.
        Unsuitable,
        // It is there, or may be there, and cannot be read now: no permission, no descriptor left, a link to a place
        // that is not there, a fault of the disk.
        Unreadable,
    };
    struct Reading
    {
        Presence presence = Presence::Absent;
        QByteArray contents;
    };

    // The operations must outlive this.
    DurableFile(QString path, FileOperations& files);

    Reading read(qint64 largestSize) const;
    // Makes the file, or replaces it where a link to it leads. False when any step failed: the old file stands then,
    // but when the last one did, which brings the new name to the disk. Its directory must be there. What programs that
    // ended in the middle of this left beside the file goes.
    bool replace(const QByteArray& contents) const;
    bool moveTo(const QString& path) const;

private:
    Reading readOpened(int file, qint64 size) const;
    bool writeNew(const QString& path, const QByteArray& contents, UnfinishedFiles::Claim& claim) const;
    bool writeAll(int file, const QByteArray& contents) const;
    bool syncDirectory(const QString& path) const;

    QString m_path;
    FileOperations& m_files;
};
