// What a full HTTP/2 server sees, and what a large body from it takes.
#include "http/Fetch.h"
#include "tests/http/Http2Program.h"
#include "tests/http/Ways.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

constexpr std::int64_t mebibyte = std::int64_t(1024) * 1024;

// Lets go of every piece.
class CountingReceiver : public http::Receiver
{
public:
    bool begin(int /*status*/) override { return true; }
    bool receive(std::string_view piece) override
    {
        count += static_cast<std::int64_t>(piece.size());
        return true;
    }

    std::int64_t count = 0;
};

http::Request requestOf(const Http2Program& server, Way way, const std::string& name)
{
    http::Request request = requestOf(way, server.url(name));
    request.authorities = server.identity().authorities();
    request.limits.largestBody = 1024 * mebibyte;
    return request;
}

// In KiB, since the last call of forgetPeak().
std::int64_t peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::int64_t size = 0;
        if (word == "VmHWM:" && status >> size)
            return size;
    }
    return -1;
}

void forgetPeak()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}

} // namespace

TEST(Http2ProgramTest, shouldSeeTheHostAndTheUserAgentAlone)
{
    for (const Way way : { Way::Index, Way::Archive }) {
        Http2Program server;
        server.serve("Packages.gz", 4);
        EXPECT_TRUE(ask(way, requestOf(server, way, "Packages.gz")).outcome.isWhole());
        EXPECT_EQ(server.requestHeaders(),
            (std::vector<std::string>{ ":method: GET", ":path: /Packages.gz", ":scheme: https",
                ":authority: " + server.host(), "user-agent: " + std::string(testUserAgent) }))
            << way;
    }
}

TEST(Http2ProgramTest, shouldSendALargeBodyThatTakesNoMoreMemoryThanASmallOne)
{
    const Http2Program server;
    server.serve("small.deb", mebibyte);
    server.serve("large.deb", 300 * mebibyte);
    const auto growthFor = [&](const std::string& name, std::int64_t size) {
        forgetPeak();
        const std::int64_t before = peakMemory();
        CountingReceiver receiver;
        EXPECT_TRUE(http::fetch(requestOf(server, Way::Archive, name), receiver).isWhole());
        EXPECT_EQ(receiver.count, size);
        return peakMemory() - before;
    };
    const std::int64_t small = growthFor("small.deb", mebibyte);
    const std::int64_t large = growthFor("large.deb", 300 * mebibyte);
    EXPECT_GT(peakMemory(), 0);
    EXPECT_LT(large - small, 4 * 1024) << "in KiB; the small one took " << small;
}
