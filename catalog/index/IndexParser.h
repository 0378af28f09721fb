#pragma once

#include "catalog/index/DpkgStatus.h"
#include "catalog/records/PackageList.h"
#include "catalog/text/TextInterner.h"

#include <array>
#include <deque>
#include <string>
#include <string_view>

// Turns the text of a package index, fed in pieces of any size, into new package records of one source, in index order.
// Nothing in the text is an error: what it cannot use it passes over. It lives on one thread, whichever that is.
class IndexParser
{
public:
    // The status must outlive the parser.
    IndexParser(VeskRepositoryPtr repository, const DpkgStatus& status);
    ~IndexParser();

    void feed(std::string_view utf8);
    // The packages of the stanzas that have ended so far.
    const PackageVector& packages() const { return m_packages; }
    // The end of the text; the parser is used up.
    PackageVector finish();

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

    void readLine(std::string_view line);
    void endStanza();
    void addPackage();
    TextPool::Handle shared(std::string_view text, std::string_view fallback = {});
    TextPool::Handle addHomepage(std::string_view text);
    // The text of the first of the fields that is present, none without any.
    std::string_view firstOf(std::initializer_list<Field> fields) const;

    const DpkgStatus& m_status;
    std::shared_ptr<PackageOrigin> m_origin;
    TextPool& m_texts;
    // For the texts that many packages have in common; the others are not worth a look-up.
    TextInterner m_sharedTexts;
    TextPool::Handle m_lastHomepage = TextPool::null;
    // All records stand in one block, and each pointer to one of them keeps the block.
    std::shared_ptr<std::deque<VeskPackage>> m_records;
    PackageVector m_packages;
    // The stanza being read; the buffers are kept from stanza to stanza.
    std::array<Value, FieldCount> m_stanza;
    bool m_stanzaIsEmpty = true;
    // The beginning of a line that goes on in the next piece.
    std::string m_partialLine;
};
