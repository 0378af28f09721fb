#pragma once

#include "catalog/index/DpkgStatus.h"
#include "catalog/records/PackageList.h"
#include "catalog/records/RecordWriter.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>

// Turns the text of a package index, fed in pieces of any size, into new package records of one source, in index order.
// Nothing in the text is an error: what it cannot use it passes over, the end of an overlong line or field among it
// (IndexLimits). It lives on one thread, whichever that is.
class IndexParser
{
public:
    // Whether the package of this identifier, the next one of those read so far, is wanted.
    using IsWanted = std::function<bool(std::string_view packageID)>;

    // The status must outlive the parser. Every package is wanted where nobody is asked.
    IndexParser(VeskRepositoryPtr repository, const DpkgStatus& status, IsWanted isWanted = {});
    ~IndexParser();

    void feed(std::string_view utf8);
    // The packages of the stanzas that have ended so far.
    const PackageVector& packages() const { return m_packages; }
    // Those that were not wanted among them.
    std::size_t packageCount() const { return m_packageCount; }
    // Of all records made so far, with their texts.
    std::size_t byteSize() const { return m_records.byteSize(); }
    // The end of the text; the parser is used up.
    PackageVector finish();
    // Once finished: what the packages have in common, block by block, in their order.
    std::vector<std::shared_ptr<const PackageOrigin>> takeOrigins() { return m_records.takeOrigins(); }

private:
    enum Field : std::size_t {
        Package,
        Name,
        Version,
        Description,
        Author,
        Maintainer,
        Section,
        Icon,
        Depiction,
        SileoDepiction,
        ModernDepiction,
        Homepage,
        FieldCount,
    };
    struct Value
    {
        bool isPresent = false;
        std::string text;
    };
    struct FieldName;

    static const std::array<FieldName, FieldCount> fieldNames;

    void keepPartialLine(std::string_view piece);
    void readLine(std::string_view line);
    void endStanza();
    void addPackage();
    // What the stanza has for a text of its package.
    std::string_view textOfStanza(PackageText which) const;
    // The text of the first of the fields that is present, the fallback without any.
    std::string_view firstOf(std::initializer_list<Field> fields, std::string_view fallback = {}) const;

    const DpkgStatus& m_status;
    RecordWriter m_records;
    IsWanted m_isWanted;
    PackageVector m_packages;
    std::size_t m_packageCount = 0;
    // The stanza being read; the buffers are kept from stanza to stanza.
    std::array<Value, FieldCount> m_stanza;
    bool m_stanzaIsEmpty = true;
    // The beginning of a line that goes on in the next piece.
    std::string m_partialLine;
};
