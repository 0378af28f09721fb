#include "catalog/query/IdentifierSet.h"

#include "catalog/text/TextHash.h"

bool IdentifierSet::insert(std::string_view packageID, std::uint32_t place, const PackageVector& packages)
{
    const auto isSame
        = [&](std::uint32_t number) { return packages[number - 1]->utf8(VeskPackage::Text::PackageID) == packageID; };
    return m_places.findOrAdd(hashOfText(packageID), isSame, [place] { return place + 1; }) == place + 1;
}
