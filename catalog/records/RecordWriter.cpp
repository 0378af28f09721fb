#include "catalog/records/RecordWriter.h"

#include <numeric>

namespace {

// The record itself and all its texts, as if it shared none of them and all were searched in lower case.
std::size_t largestSizeOf(const PackageTexts<std::string_view>& texts)
{
    return std::accumulate(
        texts.begin(), texts.end(), sizeof(VeskPackage), [](std::size_t size, std::string_view text) {
            return size + TextPool::largestSizeOf(text) + SearchedTexts::largestSizeOf(text);
        });
}

} // namespace

RecordWriter::RecordWriter(VeskRepositoryPtr repository)
    : m_repository(std::move(repository))
{
    beginBlock();
}

VeskPackagePtr RecordWriter::add(const PackageTexts<std::string_view>& texts)
{
    if (!m_records->empty() && sizeOfBlock() + largestSizeOf(texts) > blockSize) {
        endBlock();
        beginBlock();
    }
    m_lastTexts = addTexts(texts);
    VeskPackage& record = m_records->emplace_back(m_origin, m_lastTexts);
    return { m_records, &record };
}

// Packages made from one source stand together in an index: what is the same in the record before, or in this one under
// another name, is kept once.
VeskPackage::TextHandles RecordWriter::addTexts(const PackageTexts<std::string_view>& texts)
{
    VeskPackage::TextHandles handles = addSearchedTexts(texts);
    const auto handleOf = [&](PackageText which) {
        if (which == PackageText::Maintainer && isIn(handles[PackageText::Author], texts[which]))
            return handles[PackageText::Author];
        return isIn(m_lastTexts[which], texts[which]) ? m_lastTexts[which] : m_origin->texts.add(texts[which]);
    };
    for (const PackageText which :
        { PackageText::Version, PackageText::Maintainer, PackageText::Section, PackageText::IconURLString,
            PackageText::DepictionURLString, PackageText::HomepageURLString, PackageText::InstalledVersion })
        handles[which] = handleOf(which);
    return handles;
}

VeskPackage::TextHandles RecordWriter::addSearchedTexts(const PackageTexts<std::string_view>& texts)
{
    using Source = SearchedTexts::Source;
    VeskPackage::TextHandles handles;
    const auto addShared = [&](PackageText which) {
        const bool isShared = isIn(m_lastTexts[which], texts[which]);
        handles[which] = isShared ? m_lastTexts[which] : m_origin->addSearched(texts[which]);
        return isShared ? Source::OfRecordBefore : Source::Own;
    };
    const Source author = addShared(PackageText::Author);
    const Source description = addShared(PackageText::Desc);
    handles[PackageText::PackageID] = m_origin->addSearched(texts[PackageText::PackageID]);
    const bool isNamed = !isIn(handles[PackageText::PackageID], texts[PackageText::Name]);
    handles[PackageText::Name]
        = isNamed ? m_origin->addSearched(texts[PackageText::Name]) : handles[PackageText::PackageID];
    m_origin->searched.endRecord(author, description);
    return handles;
}

bool RecordWriter::isIn(TextPool::Handle handle, std::string_view text) const
{
    return !text.empty() && m_origin->text(handle) == text;
}

void RecordWriter::finish()
{
    endBlock();
    m_records.reset();
    m_origin.reset();
}

std::size_t RecordWriter::byteSize() const
{
    return m_sizeOfEndedBlocks + (m_records ? sizeOfBlock() : 0);
}

void RecordWriter::beginBlock()
{
    m_origin = std::make_shared<PackageOrigin>();
    m_origin->repository = m_repository;
    m_records = std::make_shared<std::deque<VeskPackage>>();
    m_lastTexts = {};
}

void RecordWriter::endBlock()
{
    m_origin->shrink();
    m_origins.push_back(m_origin);
    m_sizeOfEndedBlocks += sizeOfBlock();
}

std::size_t RecordWriter::sizeOfBlock() const
{
    return m_origin->byteSize() + m_records->size() * sizeof(VeskPackage);
}
