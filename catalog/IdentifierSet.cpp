#include "IdentifierSet.h"

#include "TextHash.h"

#include <bit>

namespace {

constexpr std::size_t firstSlotCount = 256;

} // namespace

void IdentifierSet::reserve(std::size_t count)
{
    if (count * 2 > m_slots.size())
        grow(std::bit_ceil(count * 2));
}

void IdentifierSet::clear()
{
    m_slots.clear();
    m_taken = 0;
}

bool IdentifierSet::insert(std::string_view packageID, std::uint32_t place, const PackageVector& packages)
{
    if ((m_taken + 1) * 2 > m_slots.size())
        grow(std::max(firstSlotCount, m_slots.size() * 2));
    const std::uint32_t hash = hashOfText(packageID);
    const std::size_t mask = m_slots.size() - 1;
    std::size_t index = hash & mask;
    for (; m_slots[index].place != 0; index = (index + 1) & mask) {
        const Slot& slot = m_slots[index];
        if (slot.hash == hash && packages[slot.place - 1]->utf8(VeskPackage::Text::PackageID) == packageID)
            return false;
    }
    m_slots[index] = { hash, place + 1 };
    ++m_taken;
    return true;
}

void IdentifierSet::grow(std::size_t slotCount)
{
    std::vector<Slot> old(slotCount);
    old.swap(m_slots);
    const std::size_t mask = m_slots.size() - 1;
    for (const Slot& slot : old) {
        if (slot.place == 0)
            continue;
        std::size_t index = slot.hash & mask;
        while (m_slots[index].place != 0)
            index = (index + 1) & mask;
        m_slots[index] = slot;
    }
}
