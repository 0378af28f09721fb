#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <string_view>

// The blocks of the first bzip2 stream of a body. Each holds all that is needed to decompress it, but no length: they
// are told apart by the marks between them, which can also stand in a block's data by chance or malice. Then something
// does not decompress or add up here, and the stream has to be decompressed from one end to the other. The body must
// outlive this.
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

    explicit Bzip2Blocks(std::string_view body);

    // None behind the last one, and where none can be made out.
    std::optional<Block> next();
    // Whether the stream ended behind the block given last, and the blocks are those that its checksum stands for.
    bool isComplete() const { return m_isComplete; }

    // Its text; empty when the block is not sound, or so unusual that it is better left. Safe on any thread.
    QByteArray decode(const Block& block) const;

private:
    struct Mark
    {
        std::uint64_t bit;
        bool isEnd;
    };

    std::uint64_t bitsAt(std::uint64_t bit, unsigned count) const;
    std::optional<Mark> findMark(std::uint64_t from) const;
    void endStream(std::uint64_t bit);

    std::string_view m_body;
    // Where the next block begins; none when there is none.
    std::optional<std::uint64_t> m_begin;
    std::uint32_t m_checksum = 0;
    bool m_isComplete = false;
};
