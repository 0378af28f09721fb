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
    const VeskPackage::TextHandles handles([&](PackageText which) { return m_texts->add(texts[which]); });
    VeskPackage& record = m_records->emplace_back(m_origin, handles);
    return { m_records, &record };
}

void RecordWriter::finish()
{
    endBlock();
    m_records.reset();
    m_origin.reset();
    m_texts.reset();
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
    m_texts.emplace(m_origin->texts);
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
