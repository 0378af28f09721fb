#include "tests/catalog/decode/PlainReference.h"

#include <array>

#include <bzlib.h>
#include <zlib.h>

namespace {

using Pass = std::array<char, 65536>;

PlainlyDecoded plainlyInflated(const QByteArray& body)
{
    QByteArray text;
    z_stream stream{};
    inflateInit2(&stream, 47);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(body.data()));
    stream.avail_in = static_cast<uInt>(body.size());
    int result = body.isEmpty() ? Z_DATA_ERROR : Z_OK;
    while (result == Z_OK) {
        Pass pass;
        stream.next_out = reinterpret_cast<Bytef*>(pass.data());
        stream.avail_out = pass.size();
        result = inflate(&stream, Z_NO_FLUSH);
        text.append(pass.data(), static_cast<qsizetype>(pass.size() - stream.avail_out));
    }
    inflateEnd(&stream);
    return { result == Z_STREAM_END && !text.isEmpty(), text };
}

PlainlyDecoded plainlyBunzipped(const QByteArray& body)
{
    QByteArray text;
    bz_stream stream{};
    BZ2_bzDecompressInit(&stream, 0, 0);
    stream.next_in = const_cast<char*>(body.data());
    stream.avail_in = static_cast<unsigned>(body.size());
    int result = body.isEmpty() ? BZ_DATA_ERROR : BZ_OK;
    while (result == BZ_OK) {
        Pass pass;
        stream.next_out = pass.data();
        stream.avail_out = pass.size();
        result = BZ2_bzDecompress(&stream);
        const std::size_t produced = pass.size() - stream.avail_out;
        text.append(pass.data(), static_cast<qsizetype>(produced));
        if (result == BZ_OK && stream.avail_in == 0 && produced == 0)
            break;
    }
    BZ2_bzDecompressEnd(&stream);
    return { result == BZ_STREAM_END && !text.isEmpty(), text };
}

} // namespace

PlainlyDecoded plainlyDecoded(const QByteArray& body, Compression compression)
{
    switch (compression) {
    case Compression::Gzip:
        return plainlyInflated(body);
    case Compression::Bzip2:
        return plainlyBunzipped(body);
    case Compression::None:
        break;
    }
    return { true, body };
}
