#pragma once

#include "catalog/query/NameKeys.h"
#include "catalog/text/HashSlots.h"
#include "catalog/text/TextPool.h"

// The sections of a run of packages, each once, with the number of its packages and the order by name.
// Filled and sorted on any one thread, then used on the main thread.
class SectionCounts
{
public:
    // One package more of this section.
    void add(std::string_view section);
    // One package less of a section that is there.
    void drop(std::string_view section);
    // To be called once all are added.
    void sort(const NameOrder& order);

    std::size_t size() const { return m_sections.size(); }
    std::string_view name(std::uint32_t place) const { return m_names.text(m_sections[place].name); }
    // None are left when all packages of the section have been dropped.
    quint64 count(std::uint32_t place) const { return m_sections[place].count; }
    std::string_view key(std::uint32_t place) const { return m_keys.key(place); }
    // The places of all sections, in the order of their names. Names that the order does not tell apart follow each
    // other by their bytes, so that the result is the same each time.
    const std::vector<std::uint32_t>& sortedPlaces() const { return m_sortedPlaces; }
    std::size_t byteSize() const;

private:
    struct Section
    {
        TextPool::Handle name = TextPool::null;
        quint64 count = 0;
    };

    TextPool m_names;
    std::vector<Section> m_sections;
    // The place of each section plus one, by its name.
    HashSlots m_numbers;
    NameKeys m_keys;
    std::vector<std::uint32_t> m_sortedPlaces;
};
