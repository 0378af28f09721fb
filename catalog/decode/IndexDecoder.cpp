#include "catalog/decode/IndexDecoder.h"

#include "catalog/decode/Bzip2Decoder.h"
#include "catalog/decode/GzipDecoder.h"
#include "catalog/decode/PlainDecoder.h"

#include <algorithm>
#include <array>

namespace {

struct Kind
{
    Compression compression;
    std::unique_ptr<IndexDecoder> (*make)(const DecoderTools& tools);
};

template <typename Decoder> std::unique_ptr<IndexDecoder> makeOnBody(const DecoderTools& tools)
{
    return std::make_unique<Decoder>(tools.body);
}

std::unique_ptr<IndexDecoder> makeBzip2(const DecoderTools& tools)
{
    return std::make_unique<Bzip2Decoder>(tools);
}

constexpr std::array<Kind, 3> kinds{ {
    { Compression::None, makeOnBody<PlainDecoder> },
    { Compression::Bzip2, makeBzip2 },
    { Compression::Gzip, makeOnBody<GzipDecoder> },
} };

} // namespace

std::unique_ptr<IndexDecoder> makeDecoder(Compression compression, const DecoderTools& tools)
{
    const auto isWanted = [compression](const Kind& kind) { return kind.compression == compression; };
    return std::find_if(kinds.begin(), kinds.end(), isWanted)->make(tools);
}
