#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

// A hash table of numbers that stand for texts kept elsewhere; 0 stands for none. Open addressing over a power of two
// of slots, at most half of them taken: a look-up reads one place of memory, and mostly no text. For a hash that is not
// there, what it reads is mostly one bit alone: whether any hash so alike is.
class HashSlots
{
public:
    // For so many numbers no memory is asked for in between.
    void reserve(std::size_t count)
    {
        if (count * 2 > m_slots.size())
            grow(std::bit_ceil(count * 2));
    }

    void clear()
    {
        m_slots.clear();
        m_marks.clear();
        m_taken = 0;
    }

    std::size_t byteSize() const { return m_slots.size() * (sizeof(Slot) + sizeof m_marks[0]); }

    // The number of this hash that is the one looked for, or 0.
    template <class IsSought> std::uint32_t find(std::uint32_t hash, const IsSought& isSought) const
    {
        return isMarked(hash) ? m_slots[indexOf(hash, isSought)].number : 0;
    }

    // Calls use(hash, number) with all there are, in the order of their slots. Who looks each of them up in other
    // tables reads those in the order of their memory too.
    template <class Use> void forEach(const Use& use) const
    {
        for (const Slot& slot : m_slots) {
            if (slot.number != 0)
                use(slot.hash, slot.number);
        }
    }

    // The number that is there already, or the one that make() gives, which is there from then on unless it is 0.
    template <class IsSought, class Make>
    std::uint32_t findOrAdd(std::uint32_t hash, const IsSought& isSought, const Make& make)
    {
        reserve(std::max(m_taken + 1, fewest));
        Slot& slot = m_slots[indexOf(hash, isSought)];
        if (slot.number == 0) {
            slot = { hash, make() };
            m_taken += slot.number == 0 ? 0 : 1;
            mark(hash);
        }
        return slot.number;
    }

private:
    static constexpr std::size_t fewest = 128;

    struct Slot
    {
        std::uint32_t hash = 0;
        std::uint32_t number = 0;
    };

    // Half of the places where hashes belong are taken, too many to guess by; one in sixteen of the marks is set.
    static std::uint8_t markOf(std::uint32_t hash) { return static_cast<std::uint8_t>(1U << (hash >> 29)); }
    void mark(std::uint32_t hash) { m_marks[hash & (m_marks.size() - 1)] |= markOf(hash); }
    bool isMarked(std::uint32_t hash) const
    {
        return !m_marks.empty() && (m_marks[hash & (m_marks.size() - 1)] & markOf(hash)) != 0;
    }

    // The slot with the number, or the free one where it belongs.
    template <class IsSought> std::size_t indexOf(std::uint32_t hash, const IsSought& isSought) const
    {
        const std::size_t mask = m_slots.size() - 1;
        std::size_t index = hash & mask;
        while (m_slots[index].number != 0 && !(m_slots[index].hash == hash && isSought(m_slots[index].number)))
            index = (index + 1) & mask;
        return index;
    }

    void grow(std::size_t slotCount)
    {
        std::vector<Slot> old(slotCount);
        old.swap(m_slots);
        m_marks.assign(slotCount, 0);
        for (const Slot& slot : old) {
            if (slot.number == 0)
                continue;
            m_slots[indexOf(slot.hash, [](std::uint32_t) { return false; })] = slot;
            mark(slot.hash);
        }
    }

    std::vector<Slot> m_slots;
    // As many, each for the hashes that belong to that slot.
    std::vector<std::uint8_t> m_marks;
    std::size_t m_taken = 0;
};
