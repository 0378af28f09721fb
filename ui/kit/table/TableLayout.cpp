#include "ui/kit/table/TableLayout.h"

#include <algorithm>

namespace kit {

TableLayout::TableLayout(const Heights& heights)
    : m_contentHeight(heights.tableHeader)
{
    for (std::size_t index = 0; index < heights.rowCounts.size(); ++index) {
        Section section{ m_contentHeight, heights.sectionHeaders[index], heights.sectionFooters[index], {} };
        const int rows = heights.rowCounts[index];
        section.rowEdges.reserve(static_cast<std::size_t>(rows) + 1);
        double edge = section.top + section.headerHeight;
        section.rowEdges.push_back(edge);
        for (int row = 0; row < rows; ++row)
            section.rowEdges.push_back(edge += heights.row({ static_cast<int>(index), row }));
        m_contentHeight = edge + section.footerHeight;
        m_sections.push_back(std::move(section));
    }
}

int TableLayout::rowCount(int section) const
{
    if (section < 0 || section >= sectionCount())
        return 0;
    return static_cast<int>(m_sections[static_cast<std::size_t>(section)].rowEdges.size()) - 1;
}

double TableLayout::sectionBottom(int section) const
{
    const Section& found = m_sections[static_cast<std::size_t>(section)];
    return found.rowEdges.back() + found.footerHeight;
}

double TableLayout::rowTop(const IndexPath& indexPath) const
{
    return m_sections[static_cast<std::size_t>(indexPath.section)].rowEdges[static_cast<std::size_t>(indexPath.row)];
}

double TableLayout::rowBottom(const IndexPath& indexPath) const
{
    return m_sections[static_cast<std::size_t>(indexPath.section)]
        .rowEdges[static_cast<std::size_t>(indexPath.row) + 1];
}

std::optional<IndexPath> TableLayout::rowAt(double y) const
{
    for (int section = 0; section < sectionCount(); ++section) {
        const auto& edges = m_sections[static_cast<std::size_t>(section)].rowEdges;
        if (y < edges.front() || y >= edges.back())
            continue;
        return IndexPath{ section,
            static_cast<int>(std::upper_bound(edges.begin(), edges.end(), y) - edges.begin()) - 1 };
    }
    return std::nullopt;
}

std::pair<int, int> TableLayout::rowsBetween(int section, double top, double bottom) const
{
    const auto& edges = m_sections[static_cast<std::size_t>(section)].rowEdges;
    const auto first = std::upper_bound(edges.begin(), edges.end(), top) - edges.begin() - 1;
    const auto last = std::lower_bound(edges.begin(), edges.end(), bottom) - edges.begin();
    const int rows = rowCount(section);
    return { std::clamp(static_cast<int>(first), 0, rows), std::clamp(static_cast<int>(last), 0, rows) };
}

int TableLayout::rowWithHeight(int section, int row) const
{
    const auto& edges = m_sections[static_cast<std::size_t>(section)].rowEdges;
    const int rows = rowCount(section);
    if (row >= rows)
        return rows;
    const auto below = std::upper_bound(edges.begin() + row, edges.end(), edges[static_cast<std::size_t>(row)]);
    return below == edges.end() ? rows : static_cast<int>(below - edges.begin()) - 1;
}

double TableLayout::headerTop(int section, double contentOffset) const
{
    const double pushedUp = sectionBottom(section) - headerHeight(section);
    return std::max(sectionTop(section), std::min(contentOffset, pushedUp));
}

std::optional<IndexPath> TableLayout::rowAfter(const IndexPath& indexPath, int rows) const
{
    long long flat = indexPath.row + static_cast<long long>(rows);
    long long total = 0;
    for (int section = 0; section < sectionCount(); ++section) {
        flat += section < indexPath.section ? rowCount(section) : 0;
        total += rowCount(section);
    }
    if (total == 0)
        return std::nullopt;
    flat = std::clamp(flat, 0LL, total - 1);
    for (int section = 0; section < sectionCount(); ++section) {
        if (flat < rowCount(section))
            return IndexPath{ section, static_cast<int>(flat) };
        flat -= rowCount(section);
    }
    return std::nullopt;
}

IndexPath TableLayout::rowOnePageFrom(const IndexPath& indexPath, int direction, double page) const
{
    const auto fits = [&](const IndexPath& row) {
        const auto [upper, lower] = std::minmax(row, indexPath);
        return rowBottom(lower) - rowTop(upper) <= page;
    };
    IndexPath target = rowAfter(indexPath, direction).value_or(indexPath);
    for (auto next = rowAfter(target, direction); next && *next != target && fits(*next);
         next = rowAfter(target, direction))
        target = *next;
    return target;
}

} // namespace kit
