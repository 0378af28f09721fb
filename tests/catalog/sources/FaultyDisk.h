#pragma once

#include "catalog/sources/FileOperations.h"

#include <QStringList>

#include <cerrno>
#include <functional>
#include <memory>

// What a test sees and says of a disk.
struct DiskRecord
{
    // Every call by its name, told apart by what it was given where that matters: "open to write", "fsync directory".
    QStringList calls;
    // The calls that fail, by name, and with which error.
    QStringList failing;
    int error = ENOSPC;
    // The most bytes that one call writes or reads.
    std::size_t largestPiece = std::size_t(1) << 20;
    // So many calls more are interrupted by a signal.
    int interruptions = 0;
    // The place in a file behind the last byte that was asked for.
    std::size_t furthestRead = 0;
    // Called before anything is read.
    std::function<void()> atReading;
    // Called before a file is renamed, with its old name.
    std::function<void(const char* from)> atRenaming;
};

// The real calls on the real disk, but for those that are to fail.
class FaultyDisk : public FileOperations
{
public:
    explicit FaultyDisk(std::shared_ptr<DiskRecord> record);

    int open(const char* path, int flags, mode_t mode) override;
    ssize_t read(int file, void* bytes, std::size_t size) override;
    ssize_t write(int file, const void* bytes, std::size_t size) override;
    int fsync(int file) override;
    int close(int file) override;
    int rename(const char* from, const char* to) override;

private:
    // Notes the call; false, with errno set, when it is to fail.
    bool passes(const QString& call);
    bool isInterrupted();

    std::shared_ptr<DiskRecord> m_record;
};
