#pragma once

#include "catalog/decode/IndexDecoder.h"

// The decoder for a kind of compression, at the beginning of a body.
std::unique_ptr<IndexDecoder> makeDecoder(Compression compression, const DecoderTools& tools);
