#pragma once

#include "catalog/records/VeskPackage.h"

#include <cstdint>
#include <string_view>
#include <vector>

// The searched texts of a run of packages, lower-cased once and laid out in one buffer of UTF-8.
// Filled on any one thread, then only read.
class SearchText
{
public:
    void add(const VeskPackage& package);
    void shrink();
    std::size_t byteSize() const { return static_cast<std::size_t>(m_text.size()) + m_ends.size() * sizeof m_ends[0]; }

    // What is searched for a query; a query that is no well-formed text, and so is in no text, gives an empty one.
    // Takes time in proportion to the query's length.
    static QByteArray folded(const QString& query);
    // The places of the packages that hold the folded query in one of their fields, in their order. It must not be
    // empty.
    std::vector<std::uint32_t> find(std::string_view foldedQuery) const;

private:
    void addField(std::string_view utf8);

    // Each field is followed by a byte that is in no text, so that nothing is found across two fields.
    // In a QByteArray, which grows to megabytes without being copied.
    QByteArray m_text;
    // Where each package's fields end.
    std::vector<std::uint32_t> m_ends;
};
