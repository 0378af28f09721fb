#pragma once

#include "ui/kit/paint/Geometry.h"

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace kit {

// Where each header and row of a table stands, exact at any number of rows: prefix sums where rows differ in height,
// and nothing but that height where they do not. All heights are points.
class TableLayout
{
public:
    struct Heights
    {
        double tableHeader = 0;
        std::vector<double> sectionHeaders;
        std::vector<double> sectionFooters;
        std::vector<int> rowCounts;
        double eachRow = 0;
        // Of rows that differ; none when all are as high as each other.
        std::function<double(const IndexPath&)> row;
    };

    TableLayout() = default;
    explicit TableLayout(const Heights& heights);

    int sectionCount() const { return static_cast<int>(m_sections.size()); }
    int rowCount(int section) const;
    double contentHeight() const { return m_contentHeight; }
    double sectionTop(int section) const { return at(section).top; }
    double headerHeight(int section) const { return at(section).headerHeight; }
    double sectionBottom(int section) const;
    double rowTop(const IndexPath& indexPath) const;
    double rowBottom(const IndexPath& indexPath) const;
    std::optional<IndexPath> rowAt(double y) const;
    // The rows that any part of [top, bottom) falls on, a range per section: first and one past the last.
    std::pair<int, int> rowsBetween(int section, double top, double bottom) const;
    // The row itself if it has a height, else the next one of the section that has; the number of its rows if none.
    int rowWithHeight(int section, int row) const;
    // A header stays at the top of what is seen until its section's end pushes it up.
    double headerTop(int section, double contentOffset) const;
    // The row so many rows further, over the sections' borders, held within the table.
    std::optional<IndexPath> rowAfter(const IndexPath& indexPath, int rows) const;
    // The furthest row, down or up (-1), that fits on a page of that height together with the row; the next one at
    // least.
    IndexPath rowOnePageFrom(const IndexPath& indexPath, int direction, double page) const;

private:
    struct Section
    {
        double top = 0;
        double headerHeight = 0;
        double footerHeight = 0;
        int rowCount = 0;
        double rowHeight = 0;
        // Of rows that differ in height: one more than there are rows.
        std::vector<double> rowEdges;

        // Where a row begins and the one before it ends; behind the last row too.
        double edge(int row) const;
        // The first row that begins behind that place, or at it or behind; one more than there are rows if none does.
        int firstEdgeAfter(double y) const;
        int firstEdgeFrom(double y) const;
    };

    static std::vector<double> edgesOf(
        int index, const Section& section, const std::function<double(const IndexPath&)>& heightOf);
    const Section& at(int section) const { return m_sections[static_cast<std::size_t>(section)]; }

    std::vector<Section> m_sections;
    double m_contentHeight = 0;
};

} // namespace kit
