#include "catalog/decode/Bzip2Blocks.h"
#include "catalog/decode/DecodeOutput.h"
#include "catalog/text/TextDecoding.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <future>
#include <optional>
#include <thread>

#include <bzlib.h>

namespace {

// A smaller body is decompressed before other threads would be at work.
constexpr std::size_t smallestSharedBody = 65536;

// What comes behind the bytes that the target has already.
class RestTarget : public DecodeTarget
{
public:
    RestTarget(DecodeTarget& target, std::size_t sizeBefore)
        : m_target(target)
        , m_sizeBefore(sizeBefore)
    {
    }

    char* window() override { return m_window = m_target.window(); }

    void accept(std::size_t size) override
    {
        const std::size_t known = std::min(size, m_sizeBefore);
        m_sizeBefore -= known;
        if (known == size)
            return;
        std::memmove(m_window, m_window + known, size - known);
        m_target.accept(size - known);
    }

private:
    DecodeTarget& m_target;
    std::size_t m_sizeBefore;
    char* m_window = nullptr;
};

DecodeResult runBzip2(bz_stream& stream, DecodeOutput& output)
{
    while (char* window = output.window()) {
        stream.next_out = window;
        stream.avail_out = DecodeTarget::windowSize;
        const int result = BZ2_bzDecompress(&stream);
        if (result != BZ_OK && result != BZ_STREAM_END)
            return DecodeResult::Broken;
        const std::size_t produced = DecodeTarget::windowSize - stream.avail_out;
        if (!output.take(produced))
            return DecodeResult::TooLarge;
        if (result == BZ_STREAM_END)
            return output.atEnd();
        if (stream.avail_in == 0 && produced == 0)
            return DecodeResult::Broken;
    }
    return DecodeResult::Stopped;
}

DecodeResult decodeInOrder(std::string_view body, std::size_t maximumSize, DecodeTarget& target)
{
    bz_stream stream{};
    if (BZ2_bzDecompressInit(&stream, 0, 0) != BZ_OK)
        return DecodeResult::Broken;
    stream.next_in = inputOf(body);
    stream.avail_in = static_cast<unsigned>(body.size());
    DecodeOutput output(maximumSize, target);
    const DecodeResult result = runBzip2(stream, output);
    BZ2_bzDecompressEnd(&stream);
    return result;
}

// None once all of the text is handed out.
std::optional<DecodeResult> handOut(std::string_view text, DecodeOutput& output)
{
    while (!text.empty()) {
        char* const window = output.window();
        if (window == nullptr)
            return DecodeResult::Stopped;
        const std::size_t size = text.copy(window, DecodeTarget::windowSize);
        if (!output.take(size))
            return DecodeResult::TooLarge;
        text.remove_prefix(size);
    }
    return std::nullopt;
}

std::size_t blocksAtOnce()
{
    return std::clamp(std::thread::hardware_concurrency(), 2U, 4U);
}

// Decompresses some blocks at once. None when there is any doubt about what is still to come.
std::optional<DecodeResult> decodeBlocks(std::string_view body, DecodeOutput& output)
{
    Bzip2Blocks blocks(body);
    std::deque<std::future<QByteArray>> ahead;
    // Where no thread can be had, the work is done when it is asked for.
    const auto startNext = [&blocks, &ahead] {
        if (const auto block = blocks.next())
            ahead.push_back(std::async([&blocks, block] { return blocks.decode(*block); }));
    };
    for (std::size_t count = blocksAtOnce(); count > 0; --count)
        startNext();
    while (!ahead.empty()) {
        const QByteArray text = ahead.front().get();
        ahead.pop_front();
        startNext();
        if (text.isEmpty())
            return std::nullopt;
        if (const auto result = handOut(viewOf(text), output))
            return result;
    }
    return blocks.isComplete() ? std::optional(output.atEnd()) : std::nullopt;
}

} // namespace

DecodeResult decodeBzip2(std::string_view body, std::size_t maximumSize, DecodeTarget& target)
{
    if (!fitsOneCall(body))
        return DecodeResult::Broken;
    DecodeOutput output(maximumSize, target);
    if (body.size() >= smallestSharedBody) {
        if (const auto result = decodeBlocks(body, output))
            return *result;
    }
    RestTarget rest(target, output.size());
    return decodeInOrder(body, maximumSize, rest);
}
