// The request as it is on the wire, to the byte.
#include "tests/http/Encodings.h"
#include "tests/http/ScriptedServer.h"
#include "tests/http/Ways.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

using http::Failure;

namespace {

std::string hostOf(const ScriptedServer& server)
{
    return "127.0.0.1:" + std::to_string(server.port());
}

std::string headWithUserAgent(const ScriptedServer& server, const std::string& path)
{
    return "GET " + path + " HTTP/1.1\r\nHost: " + hostOf(server) + "\r\nUser-Agent: " + std::string(testUserAgent)
        + "\r\n\r\n";
}

std::vector<std::string> requestsFor(Way way, const std::string& before, const std::string& path)
{
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")));
    ask(way, requestOf(way, "http://" + before + hostOf(server) + path));
    return server.requests();
}

} // namespace

TEST(RequestTest, shouldSendHostAndUserAgentAlone)
{
    for (const Way way : { Way::Index, Way::Archive }) {
        const ScriptedServer server(ScriptedServer::answer(answerOf("body")));
        ask(way, requestOf(way, server.url("/dists/Packages.gz")));
        EXPECT_EQ(server.requests(), std::vector{ headWithUserAgent(server, "/dists/Packages.gz") }) << way;
    }
}

TEST(RequestTest, shouldSendNoUserAgentUnlessThereIsOne)
{
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")));
    ask(Way::Icon, requestOf(Way::Icon, server.url("/icon.png")));
    EXPECT_EQ(server.requests(),
        std::vector{ "GET /icon.png HTTP/1.1\r\nHost: " + hostOf(server)
            + "\r\nAccept: */*\r\nAccept-Encoding: gzip, deflate\r\n\r\n" });
}

TEST(RequestTest, shouldSendTheSameAfterARedirect)
{
    const ScriptedServer target(ScriptedServer::answer(answerOf("body")));
    const ScriptedServer server(ScriptedServer::answer(
        "HTTP/1.1 302 Found\r\nSet-Cookie: a=b\r\nLocation: " + target.url("/there") + "\r\n\r\n"));
    for (const Way way : { Way::Index, Way::Archive })
        EXPECT_EQ(ask(way, requestOf(way, server.url())).body, "body") << way;
    EXPECT_EQ(target.requests(), (std::vector(2, headWithUserAgent(target, "/there"))));
}

TEST(RequestTest, shouldSendNoCookiesThatAServerLeft)
{
    const ScriptedServer server(ScriptedServer::answer(answerOf("body", "Set-Cookie: a=b; Path=/\r\n")));
    http::Client client;
    for (int count = 0; count < 2; ++count)
        ask(client, requestOf(Way::Index, server.url()));
    EXPECT_EQ(server.requests(), (std::vector(2, headWithUserAgent(server, "/"))));
}

TEST(RequestTest, shouldLeaveOutUserAndPassword)
{
    for (const Way way : everyWay) {
        const auto requests = requestsFor(way, "user:secret@", "/");
        ASSERT_EQ(requests.size(), 1) << way;
        EXPECT_EQ(requests.front().find("uthorization"), std::string::npos) << way;
    }
}

TEST(RequestTest, shouldNotSendANameAndPasswordThatTheHomeHoldsForOtherPrograms)
{
    std::string home = testing::TempDir() + "home-XXXXXX";
    ASSERT_NE(mkdtemp(home.data()), nullptr);
    std::ofstream(home + "/.netrc") << "machine 127.0.0.1 login user password secret\n";
    const char* const known = std::getenv("HOME");
    const std::string before = known ? known : "";
    setenv("HOME", home.c_str(), 1);
    for (const Way way : everyWay)
        EXPECT_EQ(requestsFor(way, "", "/").front().find("uthorization"), std::string::npos) << way;
    setenv("HOME", before.c_str(), 1);
    std::filesystem::remove_all(home);
}

TEST(RequestTest, shouldLeaveThePathAsItIs)
{
    for (const std::string path : { "/a/../b//c/./d", "/%7Euser/%2e%2e/x", "/name_1%3a2.deb?arch=all&x=%20", "/+~" })
        EXPECT_TRUE(requestsFor(Way::Index, "", path).front().starts_with("GET " + path + " HTTP/1.1\r\n")) << path;
}

TEST(RequestTest, shouldKeepTheFragmentToItself)
{
    EXPECT_TRUE(requestsFor(Way::Index, "", "/a?b#c").front().starts_with("GET /a?b HTTP/1.1\r\n"));
}

TEST(RequestTest, shouldSendNothingForAnAddressOfAnotherKind)
{
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")));
    const std::string host = "://" + hostOf(server) + "/";
    for (const std::string url : { "", "/etc/passwd", "file:///etc/passwd", "127.0.0.1", "http://", "http:///path",
             "http://127.0.0.1/two words", "http://127.0.0.1/line\r\nX: y", "http://127.0.0.1:99999/", "data:,text" })
        for (const Way way : everyWay)
            EXPECT_EQ(ask(way, requestOf(way, url)).outcome.failure, Failure::BadAddress) << url;
    for (const std::string scheme : { "ftp", "gopher", "ws", "httpx" })
        EXPECT_EQ(ask(Way::Index, requestOf(Way::Index, scheme + host)).outcome.failure, Failure::BadAddress) << scheme;
    EXPECT_EQ(server.connectionCount(), 0);
}

TEST(RequestTest, shouldTakeTheSchemeInWhateverCase)
{
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")));
    EXPECT_EQ(ask(Way::Index, requestOf(Way::Index, "HTTP://" + hostOf(server))).body, "body");
}
