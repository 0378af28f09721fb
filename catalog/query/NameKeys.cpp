#include "catalog/query/NameKeys.h"

#include <algorithm>
#include <span>

namespace {

// A place with the bytes of its key that are compared next, as one number.
struct SortItem
{
    std::uint64_t head;
    std::uint32_t place;
};

using SortItems = std::vector<SortItem>;

constexpr std::size_t deepestHead = 32;

// Behind the end of the key stand zeros, which are in no key and come before all that are.
std::uint64_t headOf(std::string_view key, std::size_t depth)
{
    std::uint64_t head = 0;
    for (std::size_t index = depth; index < depth + sizeof head; ++index)
        head = (head << 8) | (index < key.size() ? static_cast<unsigned char>(key[index]) : 0U);
    return head;
}

// Sorts places whose keys are alike up to the depth. Names of packages share long beginnings, and a look at two keys in
// each comparison is slow: items are sorted by bytes that stand with them, and runs of equal ones by the bytes behind.
void sortRun(const NameKeys& keys, std::span<SortItem> items, std::size_t depth)
{
    for (SortItem& item : items)
        item.head = headOf(keys.key(item.place), depth);
    if (depth >= deepestHead) {
        std::sort(items.begin(), items.end(), [&keys](const SortItem& a, const SortItem& b) {
            const int order = keys.key(a.place).compare(keys.key(b.place));
            return order != 0 ? order < 0 : a.place < b.place;
        });
        return;
    }
    std::sort(items.begin(), items.end(),
        [](const SortItem& a, const SortItem& b) { return a.head != b.head ? a.head < b.head : a.place < b.place; });
    for (std::size_t begin = 0, end = 0; begin < items.size(); begin = end) {
        while (end < items.size() && items[end].head == items[begin].head)
            ++end;
        if (end - begin > 1)
            sortRun(keys, items.subspan(begin, end - begin), depth + sizeof items[begin].head);
    }
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
    SortItems items(size());
    for (std::uint32_t place = 0; place < size(); ++place)
        items[place].place = place;
    sortRun(*this, items, 0);
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
