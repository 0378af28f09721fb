#include "catalog/decode/WindowRing.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

// Each window holds its number, in a length that changes with it.
void writeWindows(WindowRing& ring, int count)
{
    for (int number = 0; number < count; ++number) {
        char* window = ring.window();
        if (window == nullptr)
            break;
        const std::string text = std::to_string(number) + std::string(static_cast<std::size_t>(number % 50), '.');
        text.copy(window, text.size());
        ring.accept(text.size());
    }
    ring.finish();
}

} // namespace

TEST(WindowRing, handsEveryWindowOverInOrder)
{
    constexpr int count = 20000;
    WindowRing ring;
    std::thread writer([&ring] { writeWindows(ring, count); });
    int number = 0;
    for (std::string_view window = ring.next(); !window.empty(); window = ring.next(), ++number)
        ASSERT_EQ(window, std::to_string(number) + std::string(static_cast<std::size_t>(number % 50), '.'));
    writer.join();
    EXPECT_EQ(number, count);
}

TEST(WindowRing, endsAtOnceWhenNothingIsWritten)
{
    WindowRing ring;
    std::thread writer([&ring] { ring.finish(); });
    EXPECT_TRUE(ring.next().empty());
    writer.join();
}

TEST(WindowRing, letsTheWriterGoWhenTheReaderLeaves)
{
    for (int round = 0; round < 200; ++round) {
        WindowRing ring;
        std::thread writer([&ring] { writeWindows(ring, 1000000); });
        for (int count = 0; count < round % 20; ++count)
            ring.next();
        ring.leave();
        writer.join();
    }
}
