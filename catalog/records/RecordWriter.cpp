#include "catalog/records/RecordWriter.h"

#include <numeric>

namespace {

// The record itself and all its texts, as if it shared none of them.
std::size_t largestSizeOf(const PackageTexts<std::string_view>& texts)
{
    return std::accumulate(texts.begin(), texts.end(), sizeof(VeskPackage),
        [](std::size_t size, std::string_view text) { return size + TextPool::largestSizeOf(text); });
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
    TextPool& pool = m_origin->texts;
    VeskPackage::TextHandles handles;
    const auto isIn = [&](TextPool::Handle handle, std::string_view text) {
        return handle > TextPool::empty && pool.text(handle) == text;
    };
    const auto handleOf = [&](PackageText which) {
        const std::string_view text = texts[which];
        if (which == PackageText::Name && isIn(handles[PackageText::PackageID], text))
            return handles[PackageText::PackageID];
        if (which == PackageText::Maintainer && isIn(handles[PackageText::Author], text))
            return handles[PackageText::Author];
        return isIn(m_lastTexts[which], text) ? m_lastTexts[which] : pool.add(text);
    };
    for (std::size_t index = 0; index < std::size_t(PackageText::Count); ++index)
        handles[PackageText(index)] = handleOf(PackageText(index));
    return handles;
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
    m_origin->texts.shrink();
    m_sizeOfEndedBlocks += sizeOfBlock();
}

std::size_t RecordWriter::sizeOfBlock() const
{
    return m_origin->texts.size() + m_records->size() * sizeof(VeskPackage);
}
