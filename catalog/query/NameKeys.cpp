#include "catalog/query/NameKeys.h"

#include <algorithm>
#include <numeric>

void NameKeys::add(std::string_view name, const NameOrder& order)
{
    order.appendKey(name, m_keys);
    m_ends.push_back(static_cast<std::uint32_t>(m_keys.size()));
}

void NameKeys::sort()
{
    m_keys.shrink_to_fit();
    m_ends.shrink_to_fit();
    PackageSelection::Places places(size());
    std::iota(places.begin(), places.end(), 0U);
    std::stable_sort(
        places.begin(), places.end(), [this](std::uint32_t a, std::uint32_t b) { return key(a) < key(b); });
    m_sortedPlaces = std::make_shared<const PackageSelection::Places>(std::move(places));
}

std::string_view NameKeys::key(std::uint32_t place) const
{
    const std::size_t begin = place == 0 ? 0 : m_ends[place - 1];
    return std::string_view(m_keys).substr(begin, m_ends[place] - begin);
}

std::size_t NameKeys::byteSize() const
{
    return m_keys.size() + size() * (sizeof m_ends[0] + sizeof(std::uint32_t));
}

PackageSelection packagesByName(const PackageSelection& packages, const NameOrder& order)
{
    NameKeys keys;
    for (const VeskPackagePtr& package : packages)
        keys.add(package->utf8(VeskPackage::Text::Name), order);
    keys.sort();
    return packages.ofRows(keys.sortedPlaces());
}
