#include "catalog/decode/ReceivedBody.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

std::string patternOf(std::size_t size)
{
    std::string text(size, 0);
    for (std::size_t at = 0; at < size; ++at)
        text[at] = static_cast<char>(at * 2654435761U >> 13);
    return text;
}

std::string allOf(const ReceivedBody& body)
{
    std::string text;
    for (ReceivedBody::Part part = body.from(0); !part.bytes.empty(); part = body.from(text.size()))
        text += part.bytes;
    return text;
}

} // namespace

TEST(AReceivedBody, isWhatWasAppendedInWhateverPieces)
{
    const std::string text = patternOf(300000);
    for (const std::size_t pieceSize : { 777UL, 65536UL, 65537UL, 300000UL }) {
        ReceivedBody body;
        for (std::size_t at = 0; at < text.size(); at += pieceSize)
            body.append(std::string_view(text).substr(at, pieceSize));
        EXPECT_TRUE(allOf(body) == text) << pieceSize;
        EXPECT_TRUE(text.substr(123456).starts_with(body.from(123456).bytes));
    }
}

TEST(AReceivedBody, endsWhereItsLastByteStandsOnceItIsFinished)
{
    ReceivedBody body;
    EXPECT_FALSE(body.from(0).isEnd);
    body.append("abc");
    EXPECT_EQ(body.from(1).bytes, "bc");
    EXPECT_TRUE(body.from(3).bytes.empty());
    EXPECT_FALSE(body.from(3).isEnd);
    body.finish();
    EXPECT_FALSE(body.from(2).isEnd);
    EXPECT_TRUE(body.from(3).isEnd);
    EXPECT_TRUE(body.from(100).isEnd);
}

TEST(AReceivedBody, keepsItsBytesWhereTheyAreWhileMoreCome)
{
    ReceivedBody body;
    body.append("abc");
    const std::string_view early = body.from(0).bytes;
    body.append(patternOf(1000000));
    EXPECT_EQ(early, "abc");
    EXPECT_EQ(early.data(), body.from(0).bytes.data());
}

TEST(AReceivedBody, mayBeReadWhileItArrives)
{
    const std::string text = patternOf(2000000);
    ReceivedBody body;
    std::jthread receiver([&text, &body] {
        for (std::size_t at = 0; at < text.size(); at += 1000)
            body.append(std::string_view(text).substr(at, 1000));
        body.finish();
    });
    std::string read;
    for (ReceivedBody::Part part = body.from(0); !part.isEnd; part = body.from(read.size()))
        read += part.bytes;
    EXPECT_TRUE(read == text);
}
