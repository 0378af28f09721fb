#include "catalog/query/SectionCounts.h"

#include "catalog/text/TextHash.h"

#include <algorithm>
#include <numeric>

void SectionCounts::add(std::string_view section)
{
    const auto isSame = [&](std::uint32_t number) { return name(number - 1) == section; };
    const std::uint32_t number = m_numbers.findOrAdd(hashOfText(section), isSame, [&] {
        m_sections.push_back({ m_names.add(section), 0 });
        return static_cast<std::uint32_t>(m_sections.size());
    });
    ++m_sections[number - 1].count;
}

void SectionCounts::drop(std::string_view section)
{
    const auto isSame = [&](std::uint32_t number) { return name(number - 1) == section; };
    const std::uint32_t number = m_numbers.find(hashOfText(section), isSame);
    if (number != 0 && m_sections[number - 1].count > 0)
        --m_sections[number - 1].count;
}

void SectionCounts::sort(const NameOrder& order)
{
    m_names.shrink();
    m_sections.shrink_to_fit();
    for (std::uint32_t place = 0; place < size(); ++place)
        m_keys.add(name(place), order);
    m_sortedPlaces.resize(size());
    std::iota(m_sortedPlaces.begin(), m_sortedPlaces.end(), 0U);
    std::sort(m_sortedPlaces.begin(), m_sortedPlaces.end(), [this](std::uint32_t a, std::uint32_t b) {
        const int compared = key(a).compare(key(b));
        return compared != 0 ? compared < 0 : name(a) < name(b);
    });
}

std::size_t SectionCounts::byteSize() const
{
    return m_names.size() + m_keys.byteSize() + m_numbers.byteSize()
        + size() * (sizeof(Section) + sizeof m_sortedPlaces[0]);
}
