#include "catalog/index/IndexReader.h"

#include "catalog/decode/WindowRing.h"
#include "catalog/index/IndexTextReader.h"

#include <algorithm>
#include <array>
#include <optional>
#include <system_error>
#include <thread>

namespace {

using Encoding = IndexTextReader::Encoding;
using State = IndexTextReader::State;

// A body smaller than this is read before a second thread would be at work.
constexpr qsizetype smallestSharedBody = 65536;

// Reads each window as soon as it is written, on the same thread.
class ReadingTarget : public DecodeTarget
{
public:
    explicit ReadingTarget(IndexTextReader& reader)
        : m_reader(reader)
    {
    }

    char* window() override { return m_isWanted ? m_window->data() : nullptr; }
    void accept(std::size_t size) override { m_isWanted = m_reader.feed({ m_window->data(), size }); }

private:
    IndexTextReader& m_reader;
    bool m_isWanted = true;
    std::unique_ptr<std::array<char, windowSize>> m_window{ new std::array<char, windowSize> };
};

DecodeResult decode(const IndexJob& job, DecodeTarget& target)
{
    const auto decoder = job.compression == Compression::Gzip ? decodeGzip : decodeBzip2;
    return decoder(viewOf(job.body), job.limits.textSize, target);
}

void readWindows(WindowRing& ring, IndexTextReader& reader)
{
    for (std::string_view window = ring.next(); !window.empty(); window = ring.next()) {
        if (!reader.feed(window))
            break;
    }
    ring.leave();
}

DecodeResult decodeBesideReader(const IndexJob& job, IndexTextReader& reader)
{
    WindowRing ring;
    std::thread second;
    try {
        second = std::thread([&ring, &reader] { readWindows(ring, reader); });
    } catch (const std::system_error&) {
        ReadingTarget target(reader);
        return decode(job, target);
    }
    const DecodeResult result = decode(job, ring);
    ring.finish();
    second.join();
    return result;
}

// None when the body does not decompress.
std::optional<State> readDecoded(const IndexJob& job, IndexTextReader& reader)
{
    DecodeResult result = DecodeResult::Broken;
    if (job.body.size() < smallestSharedBody) {
        ReadingTarget target(reader);
        result = decode(job, target);
    } else {
        result = decodeBesideReader(job, reader);
    }
    if (result == DecodeResult::Broken || result == DecodeResult::TooLarge)
        return std::nullopt;
    return reader.finish();
}

std::optional<State> readPlain(const IndexJob& job, IndexTextReader& reader)
{
    std::string_view rest = viewOf(job.body);
    while (!rest.empty() && reader.feed(rest.substr(0, DecodeTarget::windowSize)))
        rest.remove_prefix(std::min(rest.size(), DecodeTarget::windowSize));
    return reader.finish();
}

using Read = std::optional<State> (*)(const IndexJob&, IndexTextReader&);

std::optional<ParsedIndex> readInEitherEncoding(const IndexJob& job, const DpkgStatus& status, Read read)
{
    for (const Encoding encoding : { Encoding::Utf8, Encoding::Latin1 }) {
        IndexTextReader reader(job, status, encoding);
        const std::optional<State> state = read(job, reader);
        if (!state)
            return std::nullopt;
        if (state == State::Sound)
            return reader.takeIndex();
        if (state == State::Refused)
            break;
    }
    return ParsedIndex();
}

} // namespace

ParsedIndex readIndex(const IndexJob& job)
{
    const DpkgStatus status = DpkgStatus::read(job.statusPaths);
    std::optional<ParsedIndex> index;
    if (job.compression != Compression::None)
        index = readInEitherEncoding(job, status, readDecoded);
    if (!index)
        index = readInEitherEncoding(job, status, readPlain);
    return std::move(*index);
}
