#pragma once

#include "catalog/records/PackageList.h"
#include "catalog/text/HashSlots.h"

#include <string_view>

// Which identifiers the packages of a list have, found by hash. It keeps places in the list, no texts of its own.
class IdentifierSet
{
public:
    // For so many packages no memory is asked for in between.
    void reserve(std::size_t count) { m_places.reserve(count); }
    void clear() { m_places.clear(); }
    // Notes that the package at the place has this identifier; false when one before it has.
    bool insert(std::string_view packageID, std::uint32_t place, const PackageVector& packages);

private:
    // Each place plus one.
    HashSlots m_places;
};
