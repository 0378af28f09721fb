#pragma once

#include <cstddef>
#include <string_view>

// Where the pattern first stands in the text at or behind a place; std::string_view::npos when nowhere. It must not be
// empty. For texts of megabytes: a pattern's first and last byte are looked for in many places at once. Over the search
// text of 63,000 packages a keystroke takes 0.6 to 2.2 ms so, where memmem takes 0.9 to 5 ms and longest for the short
// patterns that a person types first.
std::size_t findBytes(std::string_view text, std::string_view pattern, std::size_t from);
