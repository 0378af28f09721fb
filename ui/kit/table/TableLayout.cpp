#include "ui/kit/table/TableLayout.h"

#include <algorithm>

namespace kit {

namespace {

// The first of so many numbers, counted from 0, that the question says yes to, as to all behind it; their count if
// none.
template <class Question> int firstThat(const Question& question, int count)
{
    int first = 0;
    while (first < count) {
        const int middle = first + (count - first) / 2;
        if (question(middle))
            count = middle;
        else
            first = middle + 1;
    }
    return first;
}

} // namespace

TableLayout::TableLayout(const Heights& heights)
    : m_contentHeight(heights.tableHeader)
{
    for (std::size_t index = 0; index < heights.rowCounts.size(); ++index) {
        Section section{ m_contentHeight, heights.sectionHeaders[index], heights.sectionFooters[index],
            heights.rowCounts[index], heights.eachRow, {} };
        if (heights.row)
            section.rowEdges = edgesOf(static_cast<int>(index), section, heights.row);
        m_contentHeight = section.edge(section.rowCount) + section.footerHeight;
        m_sections.push_back(std::move(section));
    }
}

std::vector<double> TableLayout::edgesOf(
    int index, const Section& section, const std::function<double(const IndexPath&)>& heightOf)
{
    std::vector<double> edges;
    edges.reserve(static_cast<std::size_t>(section.rowCount) + 1);
    edges.push_back(section.top + section.headerHeight);
    for (int row = 0; row < section.rowCount; ++row)
        edges.push_back(edges.back() + heightOf({ index, row }));
    return edges;
}

double TableLayout::Section::edge(int row) const
{
    return rowEdges.empty() ? top + headerHeight + row * rowHeight : rowEdges[static_cast<std::size_t>(row)];
}

int TableLayout::Section::firstEdgeAfter(double y) const
{
    return firstThat([&](int row) { return edge(row) > y; }, rowCount + 1);
}

int TableLayout::Section::firstEdgeFrom(double y) const
{
    return firstThat([&](int row) { return edge(row) >= y; }, rowCount + 1);
}

int TableLayout::rowCount(int section) const
{
    return section < 0 || section >= sectionCount() ? 0 : at(section).rowCount;
}

double TableLayout::sectionBottom(int section) const
{
    return at(section).edge(rowCount(section)) + at(section).footerHeight;
}

double TableLayout::rowTop(const IndexPath& indexPath) const
{
    return at(indexPath.section).edge(indexPath.row);
}

double TableLayout::rowBottom(const IndexPath& indexPath) const
{
    return at(indexPath.section).edge(indexPath.row + 1);
}

std::optional<IndexPath> TableLayout::rowAt(double y) const
{
    for (int section = 0; section < sectionCount(); ++section) {
        const int after = at(section).firstEdgeAfter(y);
        if (after > 0 && after <= rowCount(section))
            return IndexPath{ section, after - 1 };
    }
    return std::nullopt;
}

std::pair<int, int> TableLayout::rowsBetween(int section, double top, double bottom) const
{
    const int rows = rowCount(section);
    return { std::clamp(at(section).firstEdgeAfter(top) - 1, 0, rows),
        std::clamp(at(section).firstEdgeFrom(bottom), 0, rows) };
}

int TableLayout::rowWithHeight(int section, int row) const
{
    const int rows = rowCount(section);
    return row >= rows ? rows : at(section).firstEdgeAfter(at(section).edge(row)) - 1;
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
