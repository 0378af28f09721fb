#include "tests/catalog/decode/PackedStream.h"

#include <algorithm>
#include <bitset>
#include <numeric>
#include <random>

#include <bzlib.h>

namespace {

// Where the tables of the first block begin: behind the header of the stream, the mark, the checksum and what is told
// of the order.
constexpr std::size_t tablesBegin = 32 + 48 + 32 + 1 + 24;

std::size_t numberAt(const std::string& bits, std::size_t at, std::size_t count)
{
    return std::stoul(bits.substr(at, count), nullptr, 2);
}

// Behind sixteen bits that tell which groups of sixteen bytes occur stand sixteen more for each of those.
std::size_t selectorCountAt(const std::string& bits)
{
    const auto groups = std::count(bits.begin() + tablesBegin, bits.begin() + tablesBegin + 16, '1');
    const std::size_t bitsOfTableCount = 3;
    return tablesBegin + 16 + static_cast<std::size_t>(groups) * 16 + bitsOfTableCount;
}

} // namespace

QByteArray noise(int size)
{
    std::mt19937 random{ 20240229 };
    QByteArray text(size, Qt::Uninitialized);
    std::generate(text.begin(), text.end(), [&random] { return static_cast<char>('0' + random() % 64); });
    return text;
}

QByteArray packedInSmallBlocks(const QByteArray& text, int flushInterval)
{
    bz_stream stream{};
    BZ2_bzCompressInit(&stream, 1, 0, 0);
    QByteArray packed(text.size() * 2 + 100000, Qt::Uninitialized);
    stream.next_out = packed.data();
    stream.avail_out = static_cast<unsigned>(packed.size());
    stream.next_in = const_cast<char*>(text.data());
    auto left = static_cast<unsigned>(text.size());
    for (const auto interval = static_cast<unsigned>(flushInterval); interval > 0 && left > interval;
         left -= interval) {
        stream.avail_in = interval;
        while (BZ2_bzCompress(&stream, BZ_FLUSH) == BZ_FLUSH_OK) { }
    }
    stream.avail_in = left;
    while (BZ2_bzCompress(&stream, BZ_FINISH) == BZ_FINISH_OK) { }
    packed.truncate(static_cast<qsizetype>(stream.next_out - packed.data()));
    BZ2_bzCompressEnd(&stream);
    return packed;
}

QByteArray unpackedByLibrary(const QByteArray& body)
{
    bz_stream stream{};
    BZ2_bzDecompressInit(&stream, 0, 0);
    stream.next_in = const_cast<char*>(body.data());
    stream.avail_in = static_cast<unsigned>(body.size());
    QByteArray text;
    QByteArray pass(65536, Qt::Uninitialized);
    int result = BZ_OK;
    while (result == BZ_OK) {
        stream.next_out = pass.data();
        stream.avail_out = static_cast<unsigned>(pass.size());
        result = BZ2_bzDecompress(&stream);
        const auto produced = pass.size() - static_cast<qsizetype>(stream.avail_out);
        text.append(pass.constData(), produced);
        if (produced == 0 && stream.avail_in == 0)
            break;
    }
    BZ2_bzDecompressEnd(&stream);
    return result == BZ_STREAM_END ? text : QByteArray();
}

std::string bitsOf(const QByteArray& body)
{
    std::string bits;
    bits.reserve(static_cast<std::size_t>(body.size()) * 8);
    for (const char byte : body)
        bits += std::bitset<8>(static_cast<unsigned char>(byte)).to_string();
    return bits;
}

QByteArray bodyOf(const std::string& bits)
{
    QByteArray body;
    for (std::size_t at = 0; at < bits.size(); at += 8) {
        std::string byte = bits.substr(at, 8);
        byte.resize(8, '0');
        body.append(static_cast<char>(std::stoul(byte, nullptr, 2)));
    }
    return body;
}

// A selector is a number of ones and a zero. More of them than are needed do no harm.
std::string withFalseMark(const std::string& bits)
{
    const std::string more = blockMarkBits + '0';
    const std::size_t countAt = selectorCountAt(bits);
    const std::size_t count = numberAt(bits, countAt, 15);
    std::size_t end = countAt + 15;
    for (std::size_t selector = 0; selector < count; ++selector)
        end = bits.find('0', end) + 1;
    const auto added = static_cast<std::size_t>(std::count(more.begin(), more.end(), '0'));
    return bits.substr(0, countAt) + std::bitset<15>(count + added).to_string()
        + bits.substr(countAt + 15, end - countAt - 15) + more + bits.substr(end);
}

QByteArray edited(QByteArray body, const std::uint8_t* data, std::size_t size, std::size_t bytesOfPlace)
{
    const auto placeAt = [&](std::size_t index) {
        const auto number = [](qsizetype place, std::uint8_t byte) { return place << 8 | byte; };
        return std::accumulate(data + index, data + index + bytesOfPlace, qsizetype(0), number) % body.size();
    };
    std::size_t index = 0;
    for (; index + bytesOfPlace < size; index += bytesOfPlace + 1) {
        const qsizetype place = placeAt(index);
        body[place] = static_cast<char>(body[place] ^ static_cast<char>(data[index + bytesOfPlace]));
    }
    if (size - index == bytesOfPlace)
        body.truncate(placeAt(index));
    return body;
}
