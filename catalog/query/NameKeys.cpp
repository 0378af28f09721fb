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
    m_sortedPlaces.resize(size());
    std::iota(m_sortedPlaces.begin(), m_sortedPlaces.end(), 0U);
    std::stable_sort(m_sortedPlaces.begin(), m_sortedPlaces.end(),
        [this](std::uint32_t a, std::uint32_t b) { return key(a) < key(b); });
}

std::string_view NameKeys::key(std::uint32_t place) const
{
    const std::size_t begin = place == 0 ? 0 : m_ends[place - 1];
    return std::string_view(m_keys).substr(begin, m_ends[place] - begin);
}

std::size_t NameKeys::byteSize() const
{
    return m_keys.size() + size() * (sizeof m_ends[0] + sizeof m_sortedPlaces[0]);
}

void sortPackagesByName(PackageVector& packages, const NameOrder& order)
{
    NameKeys keys;
    for (const VeskPackagePtr& package : packages)
        keys.add(package->utf8(VeskPackage::Text::Name), order);
    keys.sort();
    PackageVector sorted;
    sorted.reserve(packages.size());
    for (const std::uint32_t place : keys.sortedPlaces())
        sorted.push_back(std::move(packages[place]));
    packages = std::move(sorted);
}
