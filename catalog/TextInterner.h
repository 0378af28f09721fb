#pragma once

#include "TextPool.h"

#include <string_view>
#include <vector>

// Adds texts to a pool, equal ones once. Lives on one thread; the pool must outlive it.
class TextInterner
{
public:
    explicit TextInterner(TextPool& pool);

    TextPool::Handle add(std::string_view text);

private:
    struct Slot
    {
        std::uint32_t hash = 0;
        TextPool::Handle handle = TextPool::null;
    };

    // Open addressing over a power of two of slots, at most half of them taken.
    Slot& slotFor(std::uint32_t hash, std::string_view text);
    void grow();

    TextPool& m_pool;
    std::vector<Slot> m_slots;
    std::size_t m_taken = 0;
};
