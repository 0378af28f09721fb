#pragma once

#include <unistd.h>
#include <utility>

// Owns one file descriptor; -1 is none.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    FileDescriptor(FileDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    int get() const { return m_descriptor; }
    bool isOpen() const { return m_descriptor >= 0; }
    // False when there is none, or when the system tells only now that something was not written.
    bool close() { return isOpen() && ::close(std::exchange(m_descriptor, -1)) == 0; }

private:
    int m_descriptor = -1;
};
