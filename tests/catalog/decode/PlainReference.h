#pragma once

#include "catalog/decode/IndexDecoder.h"

#include <QByteArray>

// What decompression comes to by its plain definition: the whole body given to the library at once, in passes of
// 65,536 bytes, on one thread.
struct PlainlyDecoded
{
    bool isSound;
    // Up to the fault of a body that is not sound.
    QByteArray text;
};

PlainlyDecoded plainlyDecoded(const QByteArray& body, Compression compression);
