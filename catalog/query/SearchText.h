#pragma once

#include "catalog/records/VeskPackage.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

// What is searched of a run of packages: the very texts of their records, block by block.
// Filled on any one thread, then only read.
class SearchText
{
public:
    SearchText() = default;
    // Of all packages of these blocks.
    explicit SearchText(std::vector<std::shared_ptr<const PackageOrigin>> origins);

    // One package more, wherever its texts stand: they are copied.
    void add(const VeskPackage& package);

    // What is searched for a query; a query that is no well-formed text, and so is in no text, gives an empty one.
    // Takes time in proportion to the query's length.
    static QByteArray folded(const QString& query);
    // The places of the packages that hold the folded query in one of their fields, in their order. It must not be
    // empty.
    std::vector<std::uint32_t> find(std::string_view foldedQuery) const;

private:
    std::vector<std::shared_ptr<const SearchedTexts>> m_blocks;
    // The last block, when it is of copies.
    std::shared_ptr<SearchedTexts> m_copies;
};
