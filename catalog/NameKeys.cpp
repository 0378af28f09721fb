#include "NameKeys.h"

#include <algorithm>

namespace {

struct SortItem
{
    // The first bytes of the key as one number: most pairs are told apart by these alone.
    std::uint64_t head;
    std::uint32_t place;
};

std::uint64_t headOf(std::string_view key)
{
    std::uint64_t head = 0;
    for (std::size_t index = 0; index < sizeof head; ++index)
        head = (head << 8) | (index < key.size() ? static_cast<unsigned char>(key[index]) : 0U);
    return head;
}

} // namespace

void NameKeys::add(std::string_view name, const NameOrder& order)
{
    order.appendKey(name, m_keys);
    m_ends.push_back(static_cast<std::uint32_t>(m_keys.size()));
}

void NameKeys::sort()
{
    m_keys.shrink_to_fit();
    m_ends.shrink_to_fit();
    std::vector<SortItem> items;
    items.reserve(size());
    for (std::uint32_t place = 0; place < size(); ++place)
        items.push_back({ headOf(key(place)), place });
    std::sort(items.begin(), items.end(), [this](const SortItem& a, const SortItem& b) {
        if (a.head != b.head)
            return a.head < b.head;
        const int order = key(a.place).compare(key(b.place));
        return order != 0 ? order < 0 : a.place < b.place;
    });
    m_sortedPlaces.resize(items.size());
    std::transform(items.begin(), items.end(), m_sortedPlaces.begin(), [](const SortItem& item) { return item.place; });
}

std::string_view NameKeys::key(std::uint32_t place) const
{
    const std::size_t begin = place == 0 ? 0 : m_ends[place - 1];
    return std::string_view(m_keys).substr(begin, m_ends[place] - begin);
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
