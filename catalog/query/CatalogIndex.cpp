#include "catalog/query/CatalogIndex.h"

#include "catalog/query/MergeRuns.h"
#include "catalog/text/TextDecoding.h"

#include <algorithm>
#include <utility>

namespace {

struct NamedPlace
{
    std::string_view key;
    std::uint32_t place;
};

bool isBefore(const NamedPlace& a, const NamedPlace& b)
{
    return a.key < b.key;
}

struct NamedSection
{
    std::string_view key;
    SectionSize section;
};

bool isSectionBefore(const NamedSection& a, const NamedSection& b)
{
    return a.key != b.key ? a.key < b.key : a.section.name < b.section.name;
}

} // namespace

CatalogIndex::CatalogIndex(PackageList& packages, std::shared_ptr<const NameOrder> order)
    : m_packages(packages)
    , m_order(std::move(order))
{
}

std::shared_ptr<const void> CatalogIndex::clear()
{
    struct Held
    {
        PackageVector packages;
        std::vector<Segment> segments;
        PackageVector found;
        PackageVector sorted;
    };
    Held held{ m_packages.takeAll(), std::exchange(m_segments, {}), std::exchange(m_found, {}),
        std::exchange(m_sorted, {}) };
    noteAsCurrent();
    return std::make_shared<Held>(std::move(held));
}

void CatalogIndex::merge(ParsedIndex index)
{
    bringUpToDate();
    Segment segment{ std::move(index.identifiers), std::move(index.searchText), std::move(index.nameKeys),
        std::move(index.sections), {} };
    segment.places.reserve(index.packages.size());
    const std::size_t firstPlace = m_packages.size();
    std::size_t newCount = 0;
    for (std::uint32_t place = 0; place < index.packages.size(); ++place) {
        VeskPackagePtr& package = index.packages[place];
        if (segment.identifiers.isRepeated(place) || isThere(*package, segment.identifiers.hash(place))) {
            segment.places.push_back(dropped);
            segment.sections.drop(package->utf8(VeskPackage::Text::Section));
            continue;
        }
        segment.places.push_back(static_cast<std::uint32_t>(firstPlace + newCount));
        std::swap(index.packages[newCount++], package);
    }
    index.packages.resize(newCount);
    m_packages.append(std::move(index.packages));
    segment.identifiers.forgetHashes();
    if (newCount > 0)
        m_segments.push_back(std::move(segment));
    noteAsCurrent();
}

// A package that was dropped is of an identifier that an earlier segment has.
bool CatalogIndex::isThere(const VeskPackage& package, std::uint32_t hash) const
{
    const auto identifierOf = [](const VeskPackage& each) { return each.utf8(VeskPackage::Text::PackageID); };
    return std::any_of(m_segments.begin(), m_segments.end(), [&](const Segment& segment) {
        return segment.identifiers.has(hash, [&](std::uint32_t place) {
            return segment.places[place] != dropped
                && identifierOf(*m_packages[segment.places[place]]) == identifierOf(package);
        });
    });
}

const PackageVector& CatalogIndex::packagesMatching(const QString& query)
{
    if (query.isEmpty())
        return m_packages.all();
    bringUpToDate();
    if (m_hasFound && m_query == query)
        return m_found;
    m_found.clear();
    m_query = query;
    m_hasFound = true;
    const QByteArray folded = SearchText::folded(query);
    if (folded.isEmpty())
        return m_found;
    for (const Segment& segment : m_segments) {
        const std::vector<std::uint32_t> found = segment.searchText.find(viewOf(folded));
        m_found.reserve(m_found.size() + found.size());
        for (const std::uint32_t place : found) {
            if (segment.places[place] != dropped)
                m_found.push_back(m_packages[segment.places[place]]);
        }
    }
    return m_found;
}

const PackageVector& CatalogIndex::packagesByName()
{
    bringUpToDate();
    if (m_hasSorted)
        return m_sorted;
    std::vector<NamedPlace> named;
    std::vector<std::ptrdiff_t> ends;
    named.reserve(m_packages.size());
    for (const Segment& segment : m_segments) {
        for (const std::uint32_t place : segment.nameKeys.sortedPlaces()) {
            if (segment.places[place] != dropped)
                named.push_back({ segment.nameKeys.key(place), segment.places[place] });
        }
        ends.push_back(static_cast<std::ptrdiff_t>(named.size()));
    }
    mergeRuns(named, std::move(ends), isBefore);
    m_sorted.clear();
    m_sorted.reserve(named.size());
    for (const NamedPlace& item : named) {
        m_packages[item.place]->setNameRank(static_cast<quint32>(m_sorted.size()));
        m_sorted.push_back(m_packages[item.place]);
    }
    m_hasSorted = true;
    return m_sorted;
}

const std::vector<SectionSize>& CatalogIndex::sections()
{
    bringUpToDate();
    if (!m_sections)
        m_sections = mergedSections();
    return *m_sections;
}

// A section that several segments have stands in each of them: here it is one, with the packages of all.
std::vector<SectionSize> CatalogIndex::mergedSections() const
{
    std::vector<NamedSection> named;
    std::vector<std::ptrdiff_t> ends;
    for (const Segment& segment : m_segments) {
        for (const std::uint32_t place : segment.sections.sortedPlaces()) {
            if (segment.sections.count(place) > 0)
                named.push_back(
                    { segment.sections.key(place), { segment.sections.name(place), segment.sections.count(place) } });
        }
        ends.push_back(static_cast<std::ptrdiff_t>(named.size()));
    }
    mergeRuns(named, std::move(ends), isSectionBefore);
    std::vector<SectionSize> sections;
    for (const NamedSection& item : named) {
        if (!sections.empty() && sections.back().name == item.section.name)
            sections.back().count += item.section.count;
        else
            sections.push_back(item.section);
    }
    return sections;
}

void CatalogIndex::sortByName(PackageVector& packages)
{
    packagesByName();
    if (!haveRanks(packages)) {
        sortPackagesByName(packages, *m_order);
        return;
    }
    std::sort(packages.begin(), packages.end(),
        [](const VeskPackagePtr& a, const VeskPackagePtr& b) { return a->nameRank() < b->nameRank(); });
}

bool CatalogIndex::isCurrent() const
{
    return m_revision == m_packages.revision() && m_edits == VeskPackage::editCount();
}

void CatalogIndex::noteAsCurrent()
{
    m_revision = m_packages.revision();
    m_edits = VeskPackage::editCount();
    forgetResults();
}

// The list was changed by other hands than merge(): all of it becomes one segment.
void CatalogIndex::bringUpToDate()
{
    if (isCurrent())
        return;
    m_segments.clear();
    Segment whole;
    for (const VeskPackagePtr& package : m_packages) {
        const auto place = static_cast<std::uint32_t>(whole.places.size());
        whole.identifiers.add(m_packages.all());
        whole.searchText.add(*package);
        whole.nameKeys.add(package->utf8(VeskPackage::Text::Name), *m_order);
        whole.sections.add(package->utf8(VeskPackage::Text::Section));
        whole.places.push_back(place);
    }
    whole.identifiers.forgetHashes();
    whole.nameKeys.sort();
    whole.sections.sort(*m_order);
    if (!whole.places.empty())
        m_segments.push_back(std::move(whole));
    noteAsCurrent();
}

void CatalogIndex::forgetResults()
{
    m_hasFound = false;
    m_found.clear();
    m_hasSorted = false;
    m_sorted.clear();
    m_sections.reset();
}

// A rank is a hint left by some order of some time; it counts when this order has the record at that rank.
bool CatalogIndex::haveRanks(const PackageVector& packages) const
{
    return std::all_of(packages.begin(), packages.end(), [this](const VeskPackagePtr& package) {
        return package->nameRank() < m_sorted.size() && m_sorted[package->nameRank()] == package;
    });
}
