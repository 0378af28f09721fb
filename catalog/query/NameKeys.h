#pragma once

#include "catalog/query/NameOrder.h"
#include "catalog/records/PackageSelection.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The sort keys of a run of packages' names, and the order they give. Filled on any one thread, then only read.
class NameKeys
{
public:
    void add(std::string_view name, const NameOrder& order);
    // May be called while more are to come: it leaves less to be done at the end.
    void sortAdded();
    // To be called once all are added.
    void sort();

    std::size_t size() const { return m_ends.size(); }
    std::string_view key(std::uint32_t place) const;
    // Places by name; equal names in the order in which they were added.
    const PackageSelection::Places& sortedPlaces() const { return *m_sortedPlaces; }
    // The same, to be held on to.
    std::shared_ptr<const PackageSelection::Places> sharedSortedPlaces() const { return m_sortedPlaces; }
    std::size_t byteSize() const;

private:
    void addSortedRun();
    void mergeLastRuns();

    std::string m_keys;
    std::vector<std::uint32_t> m_ends;
    // While they are added: runs of places, each by name, and where each run begins.
    PackageSelection::Places m_places;
    std::vector<std::size_t> m_runs;
    std::shared_ptr<const PackageSelection::Places> m_sortedPlaces = std::make_shared<const PackageSelection::Places>();
};

// The packages in the order of their names, those of equal names as they stood.
PackageSelection packagesByName(const PackageSelection& packages, const NameOrder& order);
