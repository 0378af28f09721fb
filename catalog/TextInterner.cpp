#include "TextInterner.h"

#include "TextHash.h"

namespace {

constexpr std::size_t firstSlotCount = 256;

} // namespace

TextInterner::TextInterner(TextPool& pool)
    : m_pool(pool)
    , m_slots(firstSlotCount)
{
}

TextPool::Handle TextInterner::add(std::string_view text)
{
    if (text.empty())
        return m_pool.add(text);
    const std::uint32_t hash = hashOfText(text);
    Slot& slot = slotFor(hash, text);
    if (slot.handle != TextPool::null)
        return slot.handle;
    const TextPool::Handle handle = m_pool.add(text);
    slot = { hash, handle };
    if (++m_taken * 2 > m_slots.size())
        grow();
    return handle;
}

TextInterner::Slot& TextInterner::slotFor(std::uint32_t hash, std::string_view text)
{
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t index = hash & mask;; index = (index + 1) & mask) {
        Slot& slot = m_slots[index];
        if (slot.handle == TextPool::null || (slot.hash == hash && m_pool.text(slot.handle) == text))
            return slot;
    }
}

void TextInterner::grow()
{
    std::vector<Slot> old(m_slots.size() * 2);
    old.swap(m_slots);
    const std::size_t mask = m_slots.size() - 1;
    for (const Slot& slot : old) {
        if (slot.handle == TextPool::null)
            continue;
        std::size_t index = slot.hash & mask;
        while (m_slots[index].handle != TextPool::null)
            index = (index + 1) & mask;
        m_slots[index] = slot;
    }
}
