#pragma once

#include <algorithm>
#include <cstddef>

// A section of records has a row for each of them; one without records may have a single row that says so.

// That row counted too.
inline int rowsOrEmptyRow(std::size_t records)
{
    return std::max(1, static_cast<int>(records));
}

// The record of a row, null beyond the last one.
template <typename Records> typename Records::value_type recordOfRow(const Records& records, int row)
{
    const auto index = static_cast<std::size_t>(row);
    return row >= 0 && index < records.size() ? records[index] : nullptr;
}
