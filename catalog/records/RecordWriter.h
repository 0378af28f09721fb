#pragma once

#include "catalog/records/VeskPackage.h"

#include <deque>
#include <vector>

// Makes the package records of one source. They stand in blocks, each with the texts of its own records, and a pointer
// to a record keeps its block alone: whoever holds on to one package of a large index holds at most blockSize bytes, or
// what that package takes alone when it is larger. A block is not changed once the next one is begun.
// Lives on one thread, whichever that is; the records may be read on any other once they are made.
class RecordWriter
{
public:
    // Bytes of records and texts. With what the memory's own bookkeeping adds, a block stays under 64 KiB.
    static constexpr std::size_t blockSize = std::size_t(48) * 1024;

    explicit RecordWriter(VeskRepositoryPtr repository);

    // A new record with these texts; one without data is none.
    VeskPackagePtr add(const PackageTexts<std::string_view>& texts);
    // To be called once all are added: gives back what was held in reserve.
    void finish();
    // Once finished: what the records have in common, block by block, in their order.
    std::vector<std::shared_ptr<const PackageOrigin>> takeOrigins() { return std::move(m_origins); }
    // Of all records made so far, with their texts.
    std::size_t byteSize() const;

private:
    VeskPackage::TextHandles addTexts(const PackageTexts<std::string_view>& texts);
    VeskPackage::TextHandles addSearchedTexts(const PackageTexts<std::string_view>& texts);
    bool isIn(TextPool::Handle handle, std::string_view text) const;
    void beginBlock();
    void endBlock();
    std::size_t sizeOfBlock() const;

    VeskRepositoryPtr m_repository;
    std::size_t m_sizeOfEndedBlocks = 0;
    std::vector<std::shared_ptr<const PackageOrigin>> m_origins;
    std::shared_ptr<PackageOrigin> m_origin;
    // Each pointer to a record keeps all of its block.
    std::shared_ptr<std::deque<VeskPackage>> m_records;
    // Of the last record of the block.
    VeskPackage::TextHandles m_lastTexts;
};
