#include "catalog/text/TextPool.h"

#include <array>

namespace {

// Each text stands behind its length, written five bits a byte, a bit of each telling that more follow. All bits
// together make it a byte that goes on with a character, which is where none is to go on.
constexpr unsigned char goesOn = 0x80;
constexpr unsigned char moreFollows = 0x20;
constexpr unsigned char lengthBits = 0x1f;
constexpr unsigned lengthBitCount = 5;

} // namespace

TextPool::TextPool()
    : m_buffer(firstHandle, static_cast<char>(goesOn))
{
}

TextPool::Handle TextPool::add(std::string_view text)
{
    if (text.data() == nullptr)
        return null;
    return text.empty() ? empty : append(text);
}

TextPool::Handle TextPool::append(std::string_view text)
{
    if (text.size() > largestHandle - longestLengthPrefix - size())
        return null;
    const auto handle = static_cast<Handle>(size());
    std::array<char, longestLengthPrefix> prefix{};
    std::size_t prefixSize = 0;
    std::size_t length = text.size();
    for (; length > lengthBits; length >>= lengthBitCount)
        prefix[prefixSize++] = static_cast<char>(goesOn | moreFollows | (length & lengthBits));
    prefix[prefixSize++] = static_cast<char>(goesOn | length);
    m_buffer.append(prefix.data(), prefixSize);
    m_buffer.append(text);
    return handle;
}

std::string_view TextPool::text(Handle handle) const
{
    if (handle == null)
        return {};
    std::size_t position = handle;
    std::size_t length = 0;
    for (unsigned shift = 0;; shift += lengthBitCount) {
        const auto byte = static_cast<unsigned char>(m_buffer[position++]);
        length |= std::size_t(byte & lengthBits) << shift;
        if ((byte & moreFollows) == 0)
            return { m_buffer.data() + position, length };
    }
}
