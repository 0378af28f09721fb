#include "catalog/query/CatalogIndex.h"

#include "catalog/query/MergeRuns.h"
#include "catalog/text/TextDecoding.h"
#include "catalog/text/TextHash.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace {

struct NamedPlace
{
    std::string_view key;
    std::uint32_t place = 0;
};

std::string_view identifierOf(const VeskPackage& package)
{
    return package.utf8(VeskPackage::Text::PackageID);
}

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
        std::shared_ptr<const PackageVector> packages;
        std::vector<Segment> segments;
        std::optional<PackageSelection> found;
        std::optional<PackageSelection> sorted;
        std::optional<PackageSelection> installed;
    };
    Held held{ m_packages.takeAll(), std::exchange(m_segments, {}), std::exchange(m_found, {}),
        std::exchange(m_sorted, {}), std::exchange(m_installed, {}) };
    noteAsCurrent();
    return std::make_shared<Held>(std::move(held));
}

void CatalogIndex::merge(ParsedIndex index)
{
    bringUpToDate();
    Segment segment{ std::move(index.identifiers), std::move(index.searchText), std::move(index.nameKeys),
        std::move(index.sections), static_cast<std::uint32_t>(m_packages.size()), {} };
    const Places toDrop = placesToDrop(index.packages, segment.identifiers);
    if (!toDrop.empty())
        dropPackages(toDrop, index.packages, segment);
    const bool hasNew = !index.packages.empty();
    m_packages.append(std::move(index.packages));
    if (hasNew)
        m_segments.push_back(std::move(segment));
    noteAsCurrent();
}

// In order, those of the packages whose identifiers are not new.
CatalogIndex::Places CatalogIndex::placesToDrop(const PackageVector& packages, const IdentifierSet& identifiers) const
{
    Places toDrop;
    if (m_segments.empty())
        return toDrop;
    const Places alike = placesOfSameHashes(packages.size(), identifiers);
    for (std::uint32_t place = 0; place < packages.size(); ++place) {
        if (alike[place] == nowhere)
            continue;
        const std::string_view identifier = identifierOf(*packages[place]);
        if (identifierOf(*m_packages[alike[place]]) == identifier || isThere(identifier))
            toDrop.push_back(place);
    }
    return toDrop;
}

// For each of the packages, one in the list whose identifier has the same hash. The hashes are looked up in an order of
// their own, and only then the few identifiers in theirs, so that both read memory from its beginning to its end.
CatalogIndex::Places CatalogIndex::placesOfSameHashes(std::size_t count, const IdentifierSet& identifiers) const
{
    Places alike(count, nowhere);
    identifiers.forEach([&](std::uint32_t hash, std::uint32_t place) {
        for (const Segment& segment : m_segments) {
            const auto take
                = [&](std::uint32_t other) { return (alike[place] = segment.placeInList(other)) != nowhere; };
            if (segment.identifiers.has(hash, take))
                break;
        }
    });
    return alike;
}

void CatalogIndex::dropPackages(const Places& toDrop, PackageVector& packages, Segment& segment)
{
    segment.places.reserve(packages.size());
    std::uint32_t newCount = 0;
    auto nextToDrop = toDrop.begin();
    for (std::uint32_t place = 0; place < packages.size(); ++place) {
        if (nextToDrop != toDrop.end() && *nextToDrop == place) {
            ++nextToDrop;
            segment.places.push_back(nowhere);
            segment.sections.drop(packages[place]->utf8(VeskPackage::Text::Section));
            continue;
        }
        segment.places.push_back(segment.firstPlace + newCount);
        std::swap(packages[newCount++], packages[place]);
    }
    packages.resize(newCount);
}

// A package that was dropped is of an identifier that an earlier segment has.
bool CatalogIndex::isThere(std::string_view identifier) const
{
    const std::uint32_t hash = hashOfText(identifier);
    return std::any_of(m_segments.begin(), m_segments.end(), [&](const Segment& segment) {
        return segment.identifiers.has(hash, [&](std::uint32_t place) {
            const std::uint32_t inList = segment.placeInList(place);
            return inList != nowhere && identifierOf(*m_packages[inList]) == identifier;
        });
    });
}

PackageSelection CatalogIndex::packagesMatching(const QString& query)
{
    if (query.isEmpty())
        return m_packages;
    bringUpToDate();
    if (!m_found || m_query != query) {
        const QByteArray folded = SearchText::folded(query);
        m_found.emplace(m_packages.shared(), std::make_shared<const Places>(placesMatching(viewOf(folded))));
        m_query = query;
    }
    return *m_found;
}

CatalogIndex::Places CatalogIndex::placesMatching(std::string_view folded) const
{
    Places found;
    if (folded.empty())
        return found;
    for (const Segment& segment : m_segments) {
        Places places = segment.searchText.find(folded);
        std::transform(places.begin(), places.end(), places.begin(),
            [&](std::uint32_t place) { return segment.placeInList(place); });
        std::erase(places, nowhere);
        if (found.empty())
            found = std::move(places);
        else
            found.insert(found.end(), places.begin(), places.end());
    }
    return found;
}

PackageSelection CatalogIndex::packagesByName()
{
    bringUpToDate();
    if (!m_sorted)
        m_sorted.emplace(m_packages.shared(), mergedOrder());
    return *m_sorted;
}

PackageSelection CatalogIndex::firstByName(std::size_t count)
{
    bringUpToDate();
    return { m_packages.shared(), std::make_shared<const Places>(firstPlacesByName(count)) };
}

PackageSelection CatalogIndex::installedByName()
{
    bringUpToDate();
    if (m_installed)
        return *m_installed;
    Places places;
    for (std::uint32_t place = 0; place < m_packages.size(); ++place) {
        if (m_packages[place]->installed())
            places.push_back(place);
    }
    PackageSelection installed(m_packages.shared(), std::make_shared<const Places>(std::move(places)));
    sortByName(installed);
    m_installed = std::move(installed);
    return *m_installed;
}

std::shared_ptr<const CatalogIndex::Places> CatalogIndex::mergedOrder() const
{
    if (m_segments.size() == 1 && m_segments.front().places.empty())
        return m_segments.front().nameKeys.sharedSortedPlaces();
    return std::make_shared<const Places>(firstPlacesByName(m_packages.size()));
}

// No more of a segment can be among them than there are.
CatalogIndex::Places CatalogIndex::firstPlacesByName(std::size_t count) const
{
    std::vector<NamedPlace> named;
    std::vector<std::ptrdiff_t> ends;
    named.reserve(std::min(m_packages.size(), count * m_segments.size()));
    for (const Segment& segment : m_segments) {
        std::size_t left = count;
        for (auto place = segment.nameKeys.sortedPlaces().begin();
             place != segment.nameKeys.sortedPlaces().end() && left > 0; ++place) {
            if (segment.placeInList(*place) == nowhere)
                continue;
            named.push_back({ segment.nameKeys.key(*place), segment.placeInList(*place) });
            --left;
        }
        ends.push_back(static_cast<std::ptrdiff_t>(named.size()));
    }
    mergeRuns(named, std::move(ends), isBefore);
    named.resize(std::min(count, named.size()));
    Places places(named.size());
    std::transform(named.begin(), named.end(), places.begin(), [](const NamedPlace& item) { return item.place; });
    return places;
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

// What stands in catalog order needs no comparison of names: it is picked from the order of all.
void CatalogIndex::sortByName(PackageSelection& packages)
{
    const PackageSelection sorted = packagesByName();
    const auto& places = packages.places();
    const auto isInOrder
        = [&] { return std::adjacent_find(places->begin(), places->end(), std::greater_equal()) == places->end(); };
    if (!packages.isOf(m_packages) || !places || !isInOrder()) {
        packages = ::packagesByName(packages, *m_order);
        return;
    }
    std::vector<bool> isPicked(m_packages.size());
    for (const std::uint32_t place : *places)
        isPicked[place] = true;
    Places picked;
    picked.reserve(places->size());
    std::copy_if(sorted.places()->begin(), sorted.places()->end(), std::back_inserter(picked),
        [&](std::uint32_t place) { return isPicked[place]; });
    packages = { m_packages.shared(), std::make_shared<const Places>(std::move(picked)) };
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
        const auto place = static_cast<std::uint32_t>(whole.nameKeys.size());
        whole.identifiers.add(package->utf8(VeskPackage::Text::PackageID), place, m_packages.all());
        whole.searchText.add(*package);
        whole.nameKeys.add(package->utf8(VeskPackage::Text::Name), *m_order);
        whole.sections.add(package->utf8(VeskPackage::Text::Section));
    }
    whole.nameKeys.sort();
    whole.sections.sort(*m_order);
    if (!m_packages.empty())
        m_segments.push_back(std::move(whole));
    noteAsCurrent();
}

void CatalogIndex::forgetResults()
{
    m_found.reset();
    m_sorted.reset();
    m_installed.reset();
    m_sections.reset();
}
