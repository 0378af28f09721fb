#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>

// A stretch of text that is handed on at once: large enough that handing it on costs nothing beside the text, small
// enough to stay in a processor's cache on its way. Used by one thread at a time.
class TextBatch
{
public:
    static constexpr std::size_t capacity = std::size_t(256) * 1024;

    bool isFull() const { return m_size == capacity; }
    std::string_view text() const { return { m_bytes.get(), m_size }; }

    // Where more text goes, and for how much of it there is room.
    char* space() { return m_bytes.get() + m_size; }
    std::size_t spaceSize() const { return capacity - m_size; }
    // So many bytes have been written there.
    void grow(std::size_t count) { m_size += count; }
    // As many of them as fit; tells how many.
    std::size_t append(std::string_view bytes)
    {
        const std::size_t count = bytes.copy(space(), spaceSize());
        grow(count);
        return count;
    }

    void shrinkTo(std::size_t size) { m_size = std::min(m_size, size); }
    void clear() { m_size = 0; }

private:
    std::unique_ptr<char[]> m_bytes{ new char[capacity] };
    std::size_t m_size = 0;
};
