#pragma once

#include "catalog/decode/IndexDecoder.h"

#include <QByteArray>

#include <functional>

// What a decoder makes of a body that is fed to it on the calling thread.
struct Decoded
{
    // Complete or Broken.
    DecodeState state;
    QByteArray text;
    // How often the decoder was asked for more and had no need to wait.
    int steps = 0;
};

// The sizes of the pieces in which a body comes, asked for one after the other.
using PieceSize = std::function<qsizetype()>;

// The decoder gets as far as it can between two pieces.
Decoded decodeInPieces(const QByteArray& body, Compression compression, const PieceSize& pieceSize);
Decoded decodeWhole(const QByteArray& body, Compression compression);
