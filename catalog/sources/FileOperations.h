#pragma once

#include <cstddef>
#include <sys/types.h>

// The system calls by which a small file is read and brought to the disk; each does, answers and sets errno as its
// manual page says. Whoever stores something is given one of these, and so can be given a disk that fails.
class FileOperations
{
public:
    virtual ~FileOperations() = default;

    virtual int open(const char* path, int flags, mode_t mode);
    virtual ssize_t read(int file, void* bytes, std::size_t size);
    virtual ssize_t write(int file, const void* bytes, std::size_t size);
    virtual int fsync(int file);
    virtual int close(int file);
    virtual int rename(const char* from, const char* to);
};
