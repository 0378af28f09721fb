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
// which identifiers are there, the last search, the order by name, what is installed, and the sections. A list changed
// by other hands is looked through anew when it is next asked about. Used on the main thread.
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

    PackageSelection packagesMatching(const QString& query);
    PackageSelection packagesByName();
    // The first of them alone, at most so many.
    PackageSelection firstByName(std::size_t count);
    // Those that were installed when their index was parsed.
    PackageSelection installedByName();
    // By name; good until the next change of the list.
    const std::vector<SectionSize>& sections();
    // Packages of equal names stay as they stood.
    void sortByName(PackageSelection& packages);

private:
    using Places = PackageSelection::Places;

    // The place of a package that is not in the list.
    static constexpr std::uint32_t nowhere = 0xffffffff;

    // What one merged index brought.
    struct Segment
    {
        IdentifierSet identifiers;
        SearchText searchText;
        NameKeys nameKeys;
        // Without the packages that were dropped.
        SectionCounts sections;
        // Of its first package in the list.
        std::uint32_t firstPlace = 0;
        // The place in the list of each of its packages; none when all stand there one behind the other.
        Places places;

        std::uint32_t placeInList(std::uint32_t place) const
        {
            return places.empty() ? firstPlace + place : places[place];
        }
    };

    bool isThere(std::string_view identifier) const;
    Places placesToDrop(const PackageVector& packages, const IdentifierSet& identifiers) const;
    Places placesOfSameHashes(std::size_t count, const IdentifierSet& identifiers) const;
    static void dropPackages(const Places& toDrop, PackageVector& packages, Segment& segment);
    Places placesMatching(std::string_view folded) const;
    std::shared_ptr<const Places> mergedOrder() const;
    Places firstPlacesByName(std::size_t count) const;
    bool isCurrent() const;
    void noteAsCurrent();
    void bringUpToDate();
    void forgetResults();
    std::vector<SectionSize> mergedSections() const;

    PackageList& m_packages;
    std::shared_ptr<const NameOrder> m_order;
    quint64 m_revision = 0;
    quint64 m_edits = 0;
    std::vector<Segment> m_segments;

    QString m_query;
    std::optional<PackageSelection> m_found;
    std::optional<PackageSelection> m_sorted;
    std::optional<PackageSelection> m_installed;
    std::optional<std::vector<SectionSize>> m_sections;
};
