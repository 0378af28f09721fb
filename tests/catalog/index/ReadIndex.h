#pragma once

#include "catalog/index/IndexReading.h"
#include "catalog/work/Workers.h"

#include <QByteArray>

// Reads a whole body at once and waits for what comes of it.
ParsedIndex readIndex(const IndexJob& job, const QByteArray& body, Workers& workers);
// On the workers of all tests.
ParsedIndex readIndex(const IndexJob& job, const QByteArray& body);

// In pieces of that size, the last one excepted.
ParsedIndex readIndexInPieces(const IndexJob& job, const QByteArray& body, qsizetype pieceSize, Workers& workers);

// As many as there are processors, started when they are first needed.
Workers& sharedWorkers();
