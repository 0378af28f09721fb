#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

// Merges the sorted runs that end at the given places, two neighbours at a time, until one is left. Of equal items
// those of the earlier run come first.
template <class Item, class IsBefore>
void mergeRuns(std::vector<Item>& items, std::vector<std::ptrdiff_t> ends, const IsBefore& isBefore)
{
    while (ends.size() > 1) {
        std::vector<std::ptrdiff_t> merged;
        std::ptrdiff_t begin = 0;
        for (std::size_t run = 0; run < ends.size(); run += 2) {
            const std::ptrdiff_t end = run + 1 < ends.size() ? ends[run + 1] : ends[run];
            std::inplace_merge(items.begin() + begin, items.begin() + ends[run], items.begin() + end, isBefore);
            merged.push_back(end);
            begin = end;
        }
        ends = std::move(merged);
    }
}
