#include "catalog/decode/ReceivedBody.h"

#include <algorithm>

// Who reads need not wait for more than one block.
void ReceivedBody::append(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::lock_guard lock(m_mutex);
        const std::size_t offset = m_size % blockSize;
        if (offset == 0)
            m_blocks.emplace_back(new char[blockSize]);
        const std::size_t count = bytes.copy(m_blocks.back().get() + offset, blockSize - offset);
        m_size += count;
        bytes.remove_prefix(count);
    }
}

void ReceivedBody::finish()
{
    const std::lock_guard lock(m_mutex);
    m_isWhole = true;
}

ReceivedBody::Part ReceivedBody::from(std::size_t position) const
{
    const std::lock_guard lock(m_mutex);
    if (position >= m_size)
        return { {}, m_isWhole };
    const std::size_t offset = position % blockSize;
    const std::size_t count = std::min(blockSize - offset, m_size - position);
    return { { m_blocks[position / blockSize].get() + offset, count }, false };
}
