#pragma once

#include "catalog/text/HashSlots.h"
#include "catalog/text/TextPool.h"

#include <string_view>

// Adds texts to a pool, equal ones once. Lives on one thread; the pool must outlive it.
class TextInterner
{
public:
    explicit TextInterner(TextPool& pool);

    TextPool::Handle add(std::string_view text);

private:
    TextPool& m_pool;
    HashSlots m_handles;
};
