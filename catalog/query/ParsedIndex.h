#pragma once

#include "catalog/query/IdentifierSet.h"
#include "catalog/query/NameKeys.h"
#include "catalog/query/SearchText.h"
#include "catalog/query/SectionCounts.h"
#include "catalog/records/PackageSelection.h"

// All that comes of reading an index: the packages with an identifier that none before them has, for each of them, at
// the same place, what searching and sorting need, and their sections. Made on a worker and handed to the main thread
// whole.
struct ParsedIndex
{
    PackageVector packages;
    IdentifierSet identifiers;
    SearchText searchText;
    NameKeys nameKeys;
    SectionCounts sections;

    // All but the records and what is searched of them, which their writer counts: the pointers to them and what stands
    // beside them.
    std::size_t byteSize() const
    {
        return nameKeys.size() * sizeof(VeskPackagePtr) + identifiers.byteSize() + nameKeys.byteSize()
            + sections.byteSize();
    }
};
