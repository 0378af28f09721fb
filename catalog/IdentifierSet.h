#pragma once

#include "PackageList.h"

#include <cstdint>
#include <string_view>
#include <vector>

// Which identifiers the packages of a list have, found by hash. It keeps places in the list, no texts of its own.
class IdentifierSet
{
public:
    // For so many packages no memory is asked for in between.
    void reserve(std::size_t count);
    void clear();
    // Notes that the package at the place has this identifier; false when one before it has.
    bool insert(std::string_view packageID, std::uint32_t place, const PackageVector& packages);

private:
    struct Slot
    {
        std::uint32_t hash = 0;
        // The place plus one; 0 marks a free slot.
        std::uint32_t place = 0;
    };

    void grow(std::size_t slotCount);

    // Open addressing over a power of two of slots, at most half of them taken.
    std::vector<Slot> m_slots;
    std::size_t m_taken = 0;
};
