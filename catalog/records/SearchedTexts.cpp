#include "catalog/records/SearchedTexts.h"

#include "catalog/text/LowerCase.h"
#include "catalog/text/TextDecoding.h"

SearchedTexts::Handle SearchedTexts::add(std::string_view text)
{
    if (!isAscii(text)) {
        m_texts.append(viewOf(lowered(textOf(text))));
        return TextPool::null;
    }
    const Handle handle = m_texts.append(text);
    return text.empty() ? TextPool::null : handle;
}

void SearchedTexts::endRecord(Source author, Source description)
{
    m_records.push_back({ static_cast<std::uint32_t>(m_texts.size()) & TextPool::largestHandle,
        author == Source::OfRecordBefore, description == Source::OfRecordBefore });
}

void SearchedTexts::shrink()
{
    m_texts.shrink();
    m_records.shrink_to_fit();
}

SearchedTexts::Found SearchedTexts::recordsAt(std::size_t place, std::uint32_t from) const
{
    std::uint32_t number = from;
    while (m_records[number].end <= place)
        ++number;
    const Record& record = m_records[number];
    if (!isSharedOn(number))
        return { number, number, record.end };
    std::size_t end = number == 0 ? TextPool::firstHandle : m_records[number - 1].end;
    if (!record.sharesAuthor && place < (end = endOfText(end)))
        return foundFrom(
            number, [](const Record& each) { return each.sharesAuthor; }, end);
    // Behind its author, what the next record does not share finds this one alone: where it ends need not be known.
    if (!record.sharesDescription && m_records[number + 1].sharesDescription && place < (end = endOfText(end)))
        return foundFrom(
            number, [](const Record& each) { return each.sharesDescription; }, end);
    return { number, number, record.end };
}

// Whether the next record has any text of this one.
bool SearchedTexts::isSharedOn(std::uint32_t number) const
{
    return number + 1 < recordCount()
        && (m_records[number + 1].sharesAuthor || m_records[number + 1].sharesDescription);
}

// What is found from this record on, in a text with this end. The other texts of the records can find no more than
// them, unless the next record behind has one of those.
template <class SharesIt>
SearchedTexts::Found SearchedTexts::foundFrom(
    std::uint32_t first, const SharesIt& sharesIt, std::size_t endOfText) const
{
    std::uint32_t last = first;
    while (last + 1 < recordCount() && sharesIt(m_records[last + 1]))
        ++last;
    return { first, last, isSharedOn(last) ? endOfText : m_records[last].end };
}

std::size_t SearchedTexts::endOfText(std::size_t begin) const
{
    const std::string_view text = m_texts.text(static_cast<Handle>(begin));
    return static_cast<std::size_t>(text.data() - bytes().data()) + text.size();
}
