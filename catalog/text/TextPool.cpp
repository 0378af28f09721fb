#include "catalog/text/TextPool.h"

#include <array>
#include <limits>

namespace {

constexpr unsigned char moreFollows = 0x80;

} // namespace

TextPool::TextPool()
    : m_buffer(2, '\0')
{
}

TextPool::Handle TextPool::add(std::string_view text)
{
    if (text.data() == nullptr)
        return null;
    if (text.empty())
        return empty;
    if (text.size() > std::numeric_limits<Handle>::max() - longestLengthPrefix - size())
        return null;
    const auto handle = static_cast<Handle>(size());
    std::array<char, longestLengthPrefix> prefix{};
    std::size_t prefixSize = 0;
    std::size_t length = text.size();
    for (; length >= moreFollows; length >>= 7)
        prefix[prefixSize++] = static_cast<char>(static_cast<unsigned char>(length) | moreFollows);
    prefix[prefixSize++] = static_cast<char>(length);
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
    for (unsigned shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(m_buffer[position++]);
        length |= std::size_t(byte & 0x7fU) << shift;
        if (byte < moreFollows)
            return { m_buffer.data() + position, length };
    }
}
