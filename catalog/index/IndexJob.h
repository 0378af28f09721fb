#pragma once

#include "catalog/decode/IndexDecoder.h"
#include "catalog/index/IndexLimits.h"
#include "catalog/query/NameOrder.h"
#include "catalog/records/VeskRepository.h"

#include <QStringList>

#include <memory>

// What is to be known to read an index beside its bytes; values only, so that it can be taken to another thread.
struct IndexJob
{
    Compression compression = Compression::None;
    VeskRepositoryPtr repository;
    // The dpkg status files, in the order they are tried.
    QStringList statusPaths;
    std::shared_ptr<const NameOrder> nameOrder;
    IndexLimits limits;
};
