#pragma once

#include "catalog/decode/IndexDecoder.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <string_view>

// A ring of windows through which one thread hands bytes to one other, in order and without a lock; a side that is
// ahead sleeps until the other has caught up.
class WindowRing : public DecodeTarget
{
public:
    WindowRing();

    // The writing side. window() waits for a free one, and is null once the reader has left.
    char* window() override;
    void accept(std::size_t size) override;
    void finish();

    // The reading side. Waits for the next window, which is good until the next call; empty at the end.
    std::string_view next();
    // No more is wanted: the writer is let go.
    void leave();

private:
    static constexpr std::uint32_t windowCount = 8;
    // The reader is faster than who decompresses, and waking it for each window slows that down: it sleeps until some
    // are there.
    static constexpr std::uint32_t wakeInterval = 4;
    static_assert(wakeInterval <= windowCount, "A full ring must have woken its reader");
    // A counter of windows stands above this bit, which tells that its side has ended.
    static constexpr std::uint32_t ended = 1;
    static constexpr std::uint32_t oneWindow = 2;

    struct Window
    {
        std::array<char, windowSize> bytes;
        std::size_t size;
    };

    Window& at(std::uint32_t number) { return (*m_windows)[number % windowCount]; }

    std::unique_ptr<std::array<Window, windowCount>> m_windows;
    std::atomic<std::uint32_t> m_written{ 0 };
    std::atomic<std::uint32_t> m_read{ 0 };
    // Whether the reader still holds the window it was given last.
    bool m_isHolding = false;
};
