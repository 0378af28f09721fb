#include "catalog/sources/FileOperations.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

int FileOperations::open(const char* path, int flags, mode_t mode)
{
    return ::open(path, flags, mode);
}

ssize_t FileOperations::read(int file, void* bytes, std::size_t size)
{
    return ::read(file, bytes, size);
}

ssize_t FileOperations::write(int file, const void* bytes, std::size_t size)
{
    return ::write(file, bytes, size);
}

int FileOperations::fsync(int file)
{
    return ::fsync(file);
}

int FileOperations::close(int file)
{
    return ::close(file);
}

int FileOperations::rename(const char* from, const char* to)
{
    return ::rename(from, to);
}
