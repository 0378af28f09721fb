#include "catalog/text/TextInterner.h"

#include "catalog/text/TextHash.h"

TextInterner::TextInterner(TextPool& pool)
    : m_pool(pool)
{
}

TextPool::Handle TextInterner::add(std::string_view text)
{
    if (text.empty())
        return m_pool.add(text);
    const auto isSame = [&](TextPool::Handle handle) { return m_pool.text(handle) == text; };
    return m_handles.findOrAdd(hashOfText(text), isSame, [&] { return m_pool.add(text); });
}
