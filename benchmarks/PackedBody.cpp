#include "benchmarks/PackedBody.h"
#include "tests/support/Packing.h"

#include <array>

#include <bzlib.h>
#include <zlib.h>

namespace {

std::array<char, 65536> passBuffer;

template <typename Take> qsizetype inflateInPasses(const QByteArray& body, Take take)
{
    z_stream stream{};
    inflateInit2(&stream, 15 + 32);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(body.data()));
    stream.avail_in = static_cast<uInt>(body.size());
    int result = Z_OK;
    while (result == Z_OK) {
        stream.next_out = reinterpret_cast<Bytef*>(passBuffer.data());
        stream.avail_out = passBuffer.size();
        result = inflate(&stream, Z_NO_FLUSH);
        take(passBuffer.data(), static_cast<qsizetype>(passBuffer.size() - stream.avail_out));
    }
    inflateEnd(&stream);
    return static_cast<qsizetype>(stream.total_out);
}

} // namespace

QByteArray packedByGzip(const QByteArray& text)
{
    return QByteArray::fromStdString(gzipped(std::string_view(text)));
}

QByteArray packedByBzip2(const QByteArray& text)
{
    return QByteArray::fromStdString(bzipped(std::string_view(text)));
}

QByteArray unpackedByGzip(const QByteArray& body)
{
    QByteArray text;
    inflateInPasses(body, [&text](const char* bytes, qsizetype size) { text.append(bytes, size); });
    return text;
}

qsizetype inflateAlone(const QByteArray& body)
{
    return inflateInPasses(body, [](const char*, qsizetype) {});
}

qsizetype bunzipAlone(const QByteArray& body)
{
    bz_stream stream{};
    BZ2_bzDecompressInit(&stream, 0, 0);
    stream.next_in = const_cast<char*>(body.data());
    stream.avail_in = static_cast<unsigned>(body.size());
    qsizetype length = 0;
    int result = BZ_OK;
    while (result == BZ_OK) {
        stream.next_out = passBuffer.data();
        stream.avail_out = passBuffer.size();
        result = BZ2_bzDecompress(&stream);
        length += static_cast<qsizetype>(passBuffer.size() - stream.avail_out);
    }
    BZ2_bzDecompressEnd(&stream);
    return length;
}
