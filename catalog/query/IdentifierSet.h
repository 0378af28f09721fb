#pragma once

#include "catalog/records/PackageList.h"
#include "catalog/text/HashSlots.h"

#include <cstdint>
#include <string_view>
#include <vector>

// Which identifiers a run of packages has, found by hash. It keeps places of the run, no texts of its own: mostly a
// hash tells that an identifier is not there without a look at any package.
// Filled on any one thread, then used on the main thread.
class IdentifierSet
{
public:
    // That of the next package of the run, which holds it and all before it.
    void add(const PackageVector& run);

    std::size_t size() const { return m_hashes.size(); }
    std::uint32_t hash(std::uint32_t place) const { return m_hashes[place]; }
    // Whether a package before this one has the same identifier.
    bool isRepeated(std::uint32_t place) const;
    // Whether isSought(place) holds for one of the places with this hash.
    template <class IsSought> bool has(std::uint32_t hash, const IsSought& isSought) const
    {
        return m_places.find(hash, [&](std::uint32_t number) { return isSought(number - 1); }) != 0;
    }
    // What is needed only to compare the whole run with others.
    void forgetHashes() { m_hashes = {}; }
    std::size_t byteSize() const;

private:
    // Each place plus one.
    HashSlots m_places;
    std::vector<std::uint32_t> m_hashes;
    // In order.
    std::vector<std::uint32_t> m_repeated;
};
