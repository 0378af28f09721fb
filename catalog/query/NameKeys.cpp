#include "catalog/query/NameKeys.h"

#include <algorithm>
#include <iterator>

namespace {

// The first bytes of a key, as a number that compares as they do.
std::uint64_t beginningOf(std::string_view key)
{
    std::uint64_t beginning = 0;
    for (std::size_t place = 0; place < sizeof beginning; ++place)
        beginning = beginning << 8 | (place < key.size() ? static_cast<unsigned char>(key[place]) : 0U);
    return beginning;
}

} // namespace

void NameKeys::add(std::string_view name, const NameOrder& order)
{
    order.appendKey(name, m_keys);
    m_ends.push_back(static_cast<std::uint32_t>(m_keys.size()));
}

// Runs are merged once they are of about one length, so that few of them are left at the end.
void NameKeys::sortAdded()
{
    if (m_places.size() == size())
        return;
    addSortedRun();
    while (m_runs.size() > 1 && m_places.size() - m_runs.back() >= (m_runs.back() - m_runs[m_runs.size() - 2]) / 2)
        mergeLastRuns();
}

void NameKeys::sort()
{
    sortAdded();
    while (m_runs.size() > 1)
        mergeLastRuns();
    m_keys.shrink_to_fit();
    m_ends.shrink_to_fit();
    m_places.shrink_to_fit();
    m_sortedPlaces = std::make_shared<const PackageSelection::Places>(std::move(m_places));
}

// Most keys are told apart by their beginnings, which stand side by side.
void NameKeys::addSortedRun()
{
    struct Item
    {
        std::uint64_t beginning;
        std::uint32_t place;
    };
    m_runs.push_back(m_places.size());
    std::vector<Item> run;
    run.reserve(size() - m_places.size());
    for (auto place = static_cast<std::uint32_t>(m_places.size()); place < size(); ++place)
        run.push_back({ beginningOf(key(place)), place });
    std::stable_sort(run.begin(), run.end(), [this](const Item& a, const Item& b) {
        return a.beginning != b.beginning ? a.beginning < b.beginning : key(a.place) < key(b.place);
    });
    std::transform(run.begin(), run.end(), std::back_inserter(m_places), [](const Item& item) { return item.place; });
}

void NameKeys::mergeLastRuns()
{
    const auto middle = m_places.begin() + static_cast<std::ptrdiff_t>(m_runs.back());
    m_runs.pop_back();
    const auto begin = m_places.begin() + static_cast<std::ptrdiff_t>(m_runs.back());
    std::inplace_merge(
        begin, middle, m_places.end(), [this](std::uint32_t a, std::uint32_t b) { return key(a) < key(b); });
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
