#pragma once

#include "catalog/query/NameKeys.h"
#include "catalog/query/SearchText.h"
#include "catalog/records/PackageList.h"

// All that comes of reading an index: its packages, and for each of them, at the same place, what searching and sorting
// need. Made on a worker and handed to the main thread whole.
struct ParsedIndex
{
    PackageVector packages;
    SearchText searchText;
    NameKeys nameKeys;
};
