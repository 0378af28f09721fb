#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <string_view>
#include <vector>

// The bytes of a body as they arrive, kept in blocks that stay where they are. One thread at a time adds to it while
// any others read what is there already.
class ReceivedBody
{
public:
    struct Part
    {
        std::string_view bytes;
        // No byte stands there, and none will.
        bool isEnd;
    };

    void append(std::string_view bytes);
    // No more will come.
    void finish();

    // Some of the bytes from that position on; none when they have not come. They are good for as long as this lives.
    Part from(std::size_t position) const;

private:
    static constexpr std::size_t blockSize = 65536;

    mutable std::mutex m_mutex;
    std::vector<std::unique_ptr<char[]>> m_blocks;
    std::size_t m_size = 0;
    bool m_isWhole = false;
};
