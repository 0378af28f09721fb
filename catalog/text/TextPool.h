#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Texts one behind the other in one growing buffer, each known by a 32-bit handle: what many packages' texts are kept
// in. Null and empty texts are different handles. A handle stays good while the pool lives; a view only until the next
// add().
class TextPool
{
public:
    using Handle = std::uint32_t;
    static constexpr Handle null = 0;
    static constexpr Handle empty = 1;

    TextPool();

    // A pool that is full (4 GiB) answers null.
    Handle add(std::string_view text);
    // A view without data for null.
    std::string_view text(Handle handle) const;
    // How much the text can add to a pool's size.
    static std::size_t largestSizeOf(std::string_view text) { return longestLengthPrefix + text.size(); }
    // Gives back what the buffer holds in reserve.
    void shrink() { m_buffer.shrink_to_fit(); }
    std::size_t size() const { return m_buffer.size(); }

private:
    static constexpr std::size_t longestLengthPrefix = 5;

    // Each text stands behind its length, written seven bits a byte, the highest bit telling that more follow.
    std::string m_buffer;
};
