#include "catalog/query/IdentifierSet.h"

#include "catalog/text/TextHash.h"

bool IdentifierSet::add(std::string_view identifier, std::uint32_t place, const PackageVector& run)
{
    const std::uint32_t hash = hashOfText(identifier);
    const auto isSame
        = [&](std::uint32_t number) { return run[number - 1]->utf8(VeskPackage::Text::PackageID) == identifier; };
    return m_places.findOrAdd(hash, isSame, [place] { return place + 1; }) == place + 1;
}
