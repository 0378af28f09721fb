#pragma once

#include "catalog/sources/SourceStore.h"

#include <memory>

// What a test sees of a store: what is in it and how often it was written.
struct StoreRecord
{
    std::optional<std::vector<StoredSource>> stored;
    int writes = 0;
};

// Keeps the list in memory; the record outlives it.
class MemorySourceStore : public SourceStore
{
public:
    explicit MemorySourceStore(std::shared_ptr<StoreRecord> record)
        : m_record(std::move(record))
    {
    }

    std::optional<std::vector<StoredSource>> sources() const override { return m_record->stored; }

    bool setSources(const std::vector<StoredSource>& sources) override
    {
        ++m_record->writes;
        m_record->stored = sources;
        return true;
    }

private:
    std::shared_ptr<StoreRecord> m_record;
};
