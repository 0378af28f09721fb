#pragma once

#include "catalog/query/ParsedIndex.h"

#include <memory>
#include <optional>

// A section and how many of the catalog's packages are of it. The name is good until the next change of the catalog.
struct SectionSize
{
    std::string_view name;
    quint64 count = 0;
};

// What is worked out from the live list of packages, and kept for as long as the list and its records do not change:
// which identifiers are there, the last search, the order by name, and the sections. A list changed by other hands is
// looked through anew when it is next asked about. Used on the main thread.
class CatalogIndex
{
public:
    // The list must outlive this.
    CatalogIndex(PackageList& packages, std::shared_ptr<const NameOrder> order);

    // Empties the list. What it and this held goes with what is returned, which may be let go of on any thread: of a
    // large catalog that takes longer than a frame.
    std::shared_ptr<const void> clear();
    // Appends the packages whose identifiers are new to the list, in their order.
    void merge(ParsedIndex index);

    // These are good until the next call or the next change of the list.
    const PackageVector& packagesMatching(const QString& query);
    const PackageVector& packagesByName();
    // By name.
    const std::vector<SectionSize>& sections();
    // Packages of equal names stand in catalog order, or, when any is not of the catalog, as they stood.
    void sortByName(PackageVector& packages);

private:
    static constexpr std::uint32_t dropped = 0xffffffff;

    // What one merged index brought, with the place in the list of each of its packages.
    struct Segment
    {
        IdentifierSet identifiers;
        SearchText searchText;
        NameKeys nameKeys;
        // Without the packages that were dropped.
        SectionCounts sections;
        std::vector<std::uint32_t> places;
    };

    bool isThere(const VeskPackage& package, std::uint32_t hash) const;
    bool isCurrent() const;
    void noteAsCurrent();
    void bringUpToDate();
    void forgetResults();
    std::vector<SectionSize> mergedSections() const;
    bool haveRanks(const PackageVector& packages) const;

    PackageList& m_packages;
    std::shared_ptr<const NameOrder> m_order;
    quint64 m_revision = 0;
    quint64 m_edits = 0;
    std::vector<Segment> m_segments;

    QString m_query;
    bool m_hasFound = false;
    PackageVector m_found;
    bool m_hasSorted = false;
    PackageVector m_sorted;
    std::optional<std::vector<SectionSize>> m_sections;
};
