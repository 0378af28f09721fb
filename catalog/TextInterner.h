#pragma once

#include "TextPool.h"

#include <memory>
#include <string_view>
#include <vector>

// Fills a text pool in which equal texts stand once. Lives on one thread; the pool outlives it.
class TextInterner
{
public:
    TextInterner();

    TextPool::Handle add(std::string_view text);
    std::shared_ptr<const TextPool> pool() const { return m_pool; }
    void shrink() { m_pool->shrink(); }

private:
    struct Slot
    {
        std::uint32_t hash = 0;
        TextPool::Handle handle = TextPool::null;
    };

    // Open addressing over a power of two of slots, at most half of them taken.
    Slot& slotFor(std::uint32_t hash, std::string_view text);
    void grow();

    std::shared_ptr<TextPool> m_pool;
    std::vector<Slot> m_slots;
    std::size_t m_taken = 0;
};
