#pragma once

#include "catalog/text/TextPool.h"

#include <cstdint>
#include <vector>

// The texts of some records that searching looks through, apart from the others, so that a search reads nothing else.
// Of each record first its author and its description, which records that follow may share with it. ASCII stands here
// as it is, and who searches takes its letters of either case for the same; a text with any other letter stands here in
// lower case. Filled on any one thread, then only read.
class SearchedTexts
{
public:
    using Handle = TextPool::Handle;
    enum class Source : bool { Own, OfRecordBefore };

    // One more text of the record that endRecord() ends, none being an empty one. The handle is null when what stands
    // here is not the text itself.
    Handle add(std::string_view text);
    // The record's own author, if it has one, was added first, and its own description next.
    void endRecord(Source author, Source description);
    void shrink();

    std::string_view text(Handle handle) const { return m_texts.text(handle); }
    // How much a text can add: no letter takes more than three bytes in lower case for two of its own.
    static std::size_t largestSizeOf(std::string_view text) { return TextPool::largestSizeOf(text) + text.size() / 2; }
    std::size_t byteSize() const { return m_texts.size() + m_records.size() * sizeof(Record); }
    std::uint32_t recordCount() const { return static_cast<std::uint32_t>(m_records.size()); }

    // What is searched: nothing well-formed is found in it across two texts.
    std::string_view bytes() const { return m_texts.bytes(); }
    struct Found
    {
        // The records that have the text, numbered from 0; the last one is among them.
        std::uint32_t first;
        std::uint32_t last;
        // Behind all that could find none but these.
        std::size_t end;
    };
    // Whose text stands at this place of the bytes, which is not before those of the given record.
    Found recordsAt(std::size_t place, std::uint32_t from) const;

private:
    struct Record
    {
        // Of its own texts.
        std::uint32_t end : 30;
        std::uint32_t sharesAuthor : 1;
        std::uint32_t sharesDescription : 1;
    };

    bool isSharedOn(std::uint32_t number) const;
    template <class SharesIt>
    Found foundFrom(std::uint32_t first, const SharesIt& sharesIt, std::size_t endOfText) const;
    std::size_t endOfText(std::size_t begin) const;

    TextPool m_texts;
    std::vector<Record> m_records;
};
