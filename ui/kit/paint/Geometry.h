#pragma once

namespace kit {

// Lengths are points: at scale 2 one point is two device pixels.
struct EdgeInsets
{
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;

    friend bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

// A row of a table: both numbers count from 0.
struct IndexPath
{
    int section = 0;
    int row = 0;

    friend bool operator==(const IndexPath&, const IndexPath&) = default;
    friend bool operator<(const IndexPath& a, const IndexPath& b)
    {
        return a.section != b.section ? a.section < b.section : a.row < b.row;
    }
};

// Stands for none.
inline constexpr IndexPath NoRow{ -1, -1 };

} // namespace kit
