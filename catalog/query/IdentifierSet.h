#pragma once

#include "catalog/records/PackageList.h"
#include "catalog/text/HashSlots.h"

#include <cstdint>
#include <string_view>

// Which identifiers a run of packages has, found by hash. It keeps places of the run, no texts of its own: mostly a
// hash tells that an identifier is not there without a look at any package.
// Filled on any one thread, then used on the main thread.
class IdentifierSet
{
public:
    // That of the package at the place, which comes next; the run has all that were added before. False, and nothing is
    // added, if it was there already.
    bool add(std::string_view identifier, std::uint32_t place, const PackageVector& run);

    // Calls use(hash, place) with every package of the run, in the order in which looking their hashes up in any such
    // set is fastest.
    template <class Use> void forEach(const Use& use) const
    {
        m_places.forEach([&](std::uint32_t hash, std::uint32_t number) { use(hash, number - 1); });
    }
    // Whether isSought(place) holds for one of the places with this hash.
    template <class IsSought> bool has(std::uint32_t hash, const IsSought& isSought) const
    {
        return m_places.find(hash, [&](std::uint32_t number) { return isSought(number - 1); }) != 0;
    }
    std::size_t byteSize() const { return m_places.byteSize(); }

private:
    // Each place plus one.
    HashSlots m_places;
};
