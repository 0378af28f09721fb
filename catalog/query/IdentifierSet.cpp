#include "catalog/query/IdentifierSet.h"

#include "catalog/text/TextHash.h"

#include <algorithm>

void IdentifierSet::add(const PackageVector& run)
{
    const auto identifierAt = [&](std::uint32_t place) { return run[place]->utf8(VeskPackage::Text::PackageID); };
    const auto place = static_cast<std::uint32_t>(size());
    const std::string_view identifier = identifierAt(place);
    const std::uint32_t hash = hashOfText(identifier);
    const auto isSame = [&](std::uint32_t number) { return identifierAt(number - 1) == identifier; };
    if (m_places.findOrAdd(hash, isSame, [place] { return place + 1; }) != place + 1)
        m_repeated.push_back(place);
    m_hashes.push_back(hash);
}

bool IdentifierSet::isRepeated(std::uint32_t place) const
{
    return std::binary_search(m_repeated.begin(), m_repeated.end(), place);
}

std::size_t IdentifierSet::byteSize() const
{
    return m_places.byteSize() + (m_hashes.size() + m_repeated.size()) * sizeof m_hashes[0];
}
