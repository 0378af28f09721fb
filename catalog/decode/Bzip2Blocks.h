#pragma once

#include "catalog/decode/ReceivedBody.h"

#include <QByteArray>

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string_view>

// The blocks of the first bzip2 stream of a body, found while it arrives. Each holds all that is needed to decompress
// it, but no length: they are told apart by the marks between them, which can also stand in a block's data by chance or
// malice. Then something does not decompress or add up here, and the stream has to be decompressed from one end to the
// other. Lives on one thread at a time.
class Bzip2Blocks
{
public:
    // Positions in the body, in bits.
    struct Block
    {
        std::uint64_t begin;
        std::uint64_t end;
        bool isLast;
    };
    enum class State {
        // There may be more, now or when more of the body has come.
        Searching,
        // The stream has ended behind the block given last, and the blocks are those that its checksum stands for.
        Complete,
        // No more can be made out.
        Doubtful,
    };

    explicit Bzip2Blocks(std::shared_ptr<const ReceivedBody> body);

    // None when the bytes that have come do not hold another one to its end, and in any state but Searching.
    std::optional<Block> next();
    State state() const { return m_state; }

    // The text of a block; empty when that is not sound, or so unusual that it is better left, or when a stop is asked
    // for. Safe on any thread.
    static QByteArray decode(const ReceivedBody& body, const Block& block, const std::stop_token& stop);

private:
    struct Mark
    {
        std::uint64_t bit;
        bool isEnd;
    };

    bool hasBegun();
    void beginAt(std::uint64_t bit);
    bool hasFoundMark();
    // Looks through bytes that follow those before.
    std::optional<Mark> markIn(std::string_view bytes);
    // Whether the bits before that one have come; in doubt when they never will.
    bool hasCome(std::uint64_t bitsEnd);

    std::shared_ptr<const ReceivedBody> m_body;
    State m_state = State::Searching;
    // Where the block begins whose end is searched; none before the first.
    std::optional<std::uint64_t> m_begin;
    // Its end, once that is found.
    std::optional<Mark> m_mark;
    // The byte that is searched next, and those before it.
    std::size_t m_at = 0;
    std::uint64_t m_window = 0;
    std::uint32_t m_checksum = 0;
};
