#pragma once

#include "catalog/decode/IndexDecoder.h"
#include "catalog/index/IndexLimits.h"
#include "catalog/query/ParsedIndex.h"

#include <QByteArray>
#include <QStringList>

#include <atomic>
#include <memory>

// Asks background work to give up early; shared by who asks and who works.
using CancelFlag = std::shared_ptr<std::atomic<bool>>;

// What is needed to read one index; values only, so that it can be taken to another thread.
struct IndexJob
{
    QByteArray body;
    Compression compression = Compression::None;
    VeskRepositoryPtr repository;
    QStringList statusPaths;
    std::shared_ptr<const NameOrder> nameOrder;
    IndexLimits limits;
    CancelFlag cancelled;
};

// Decompresses, decodes and parses a downloaded index. A body that does not decompress is read as it is; bytes that are
// not UTF-8 are Latin-1. Without packages when there is none in it, when it is beyond the limits, or when it was
// cancelled. Safe on any thread. A large compressed body is decompressed on the calling thread while a second one does
// all the rest.
ParsedIndex readIndex(const IndexJob& job);
