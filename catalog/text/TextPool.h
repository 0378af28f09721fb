#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Texts one behind the other in one growing buffer, each known by a 30-bit handle: what many packages' texts are kept
// in. Null and empty texts are different handles. A handle stays good while the pool lives; a view only until the next
// add().
class TextPool
{
public:
    using Handle = std::uint32_t;
    static constexpr Handle null = 0;
    static constexpr Handle empty = 1;
    // Those of texts that stand in the pool, and of its end.
    static constexpr Handle firstHandle = 2;
    static constexpr Handle largestHandle = (Handle(1) << 30) - 1;

    TextPool();

    // A pool that is full (1 GiB) answers null.
    Handle add(std::string_view text);
    // The same for a text that is to stand among the bytes even when it is empty.
    Handle append(std::string_view text);
    // A view without data for null.
    std::string_view text(Handle handle) const;
    // The texts, and in front of each its length, in bytes that no character begins with: of well-formed texts, nothing
    // well-formed is found here but what is in one of them.
    std::string_view bytes() const { return m_buffer; }
    // How much the text can add to a pool's size.
    static std::size_t largestSizeOf(std::string_view text) { return longestLengthPrefix + text.size(); }
    // Gives back what the buffer holds in reserve.
    void shrink() { m_buffer.shrink_to_fit(); }
    std::size_t size() const { return m_buffer.size(); }

private:
    static constexpr std::size_t longestLengthPrefix = 7;

    std::string m_buffer;
};
