// What connections cost, whom they reach, and what they leave behind in the process.
#include "tests/http/Encodings.h"
#include "tests/http/Gate.h"
#include "tests/http/Http2Frames.h"
#include "tests/http/ScriptedServer.h"
#include "tests/http/Ways.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <future>

using http::Failure;

namespace {

const TlsCertificate speakingHttp2{ .protocols = TlsCertificate::Protocols::Http2 };

// Answers every request on a connection.
void answerAll(ServerConnection& connection)
{
    while (!connection.readHead().empty() && connection.send(answerOf("body"))) { }
}

// Answers the first request on a connection, and closes it once it has read the second.
void answerOnce(ServerConnection& connection)
{
    connection.readHead();
    connection.send(answerOf("body"));
    connection.readHead();
}

http::Request trusting(const TlsIdentity& identity, const std::string& url)
{
    http::Request request = requestOf(Way::Index, url);
    request.authorities = identity.authorities();
    return request;
}

// A socket of this machine that nobody answers on: connections are refused, or wait once the queue is full.
class DeafSocket
{
public:
    DeafSocket()
    {
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        EXPECT_EQ(bind(listening, plainAddress(), length), 0);
        getsockname(listening, plainAddress(), &length);
    }
    ~DeafSocket()
    {
        for (const int one : { listening, first, second })
            close(one);
    }
    DeafSocket(const DeafSocket&) = delete;
    DeafSocket& operator=(const DeafSocket&) = delete;

    void fillQueue()
    {
        listen(listening, 0);
        for (const int one : { first, second })
            static_cast<void>(connect(one, plainAddress(), sizeof address));
    }
    std::string url() const { return "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/"; }

private:
    sockaddr* plainAddress() { return reinterpret_cast<sockaddr*>(&address); }

    sockaddr_in address = {};
    int listening = socket(AF_INET, SOCK_STREAM, 0);
    int first = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    int second = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
};

// Of the connections of this process to that port: how many a child would inherit.
struct Inheritance
{
    int open = 0;
    int inherited = 0;
};

Inheritance connectionsTo(int port)
{
    Inheritance found;
    for (int descriptor = 0; descriptor < 256; ++descriptor) {
        sockaddr_in peer = {};
        socklen_t length = sizeof peer;
        if (getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &length) != 0 || ntohs(peer.sin_port) != port)
            continue;
        ++found.open;
        found.inherited += (fcntl(descriptor, F_GETFD) & FD_CLOEXEC) == 0 ? 1 : 0;
    }
    return found;
}

} // namespace

TEST(ConnectionTest, shouldAskTheNamesOfASourceOnOneSecureConnection)
{
    const TlsIdentity identity;
    const ScriptedServer server(answerAll, &identity);
    http::Client client;
    for (int count = 0; count < 5; ++count)
        EXPECT_EQ(ask(client, trusting(identity, server.url())).body, "body");
    EXPECT_EQ(server.connectionCount(), 1);
    EXPECT_EQ(server.requests().size(), 5);
}

TEST(ConnectionTest, shouldAskTheNamesOfASourceOnOneConnectionOfHTTP2)
{
    const TlsIdentity identity(speakingHttp2);
    const ScriptedServer server(http2::serving([](ServerConnection& connection, std::uint32_t stream) {
        connection.send(
            http2::headers(stream, { { ":status", "200" } }) + http2::data(stream, "body", http2::End::Stream));
        return http2::After::GoOn;
    }),
        &identity);
    http::Client client;
    for (int count = 0; count < 5; ++count)
        EXPECT_EQ(ask(client, trusting(identity, server.url())).body, "body");
    EXPECT_EQ(server.connectionCount(), 1);
}

// The library by itself asks again on a new connection.
TEST(ConnectionTest, shouldNotAskTwiceWhenAKeptConnectionEndsAfterTheRequest)
{
    const TlsIdentity identity;
    const ScriptedServer server(answerOnce, &identity);
    http::Client client;
    EXPECT_EQ(ask(client, trusting(identity, server.url("/first"))).body, "body");
    EXPECT_EQ(ask(client, trusting(identity, server.url("/second"))).outcome.failure, Failure::NoAnswer);
    EXPECT_EQ(server.requests().size(), 2);
    EXPECT_EQ(server.connectionCount(), 1);
}

TEST(ConnectionTest, shouldNotAskTwiceWhenAStreamOfAKeptConnectionIsRefused)
{
    const TlsIdentity identity(speakingHttp2);
    const ScriptedServer server(http2::serving([](ServerConnection& connection, std::uint32_t stream) {
        constexpr std::uint32_t firstStream = 1;
        const std::string whole = http2::headers(stream, { { ":status", "200" } }, http2::End::Stream);
        connection.send(stream == firstStream ? whole : http2::reset(stream, http2::refusedStream));
        return http2::After::GoOn;
    }),
        &identity);
    http::Client client;
    EXPECT_EQ(ask(client, trusting(identity, server.url())).outcome.failure, Failure::None);
    EXPECT_EQ(ask(client, trusting(identity, server.url())).outcome.failure, Failure::NoAnswer);
    EXPECT_EQ(server.requests().size(), 2);
}

// Servers that close without saying so before would otherwise cost a candidate.
TEST(ConnectionTest, shouldNotTrustThatAPlainConnectionStaysOpen)
{
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")));
    http::Client client;
    for (int count = 0; count < 50; ++count)
        EXPECT_EQ(ask(client, requestOf(Way::Index, server.url())).body, "body");
    EXPECT_EQ(server.connectionCount(), 50);
}

TEST(ConnectionTest, shouldCloseAPlainConnectionAfterItsAnswer)
{
    std::promise<std::string> more;
    const ScriptedServer server([&more](ServerConnection& connection) {
        connection.readHead();
        connection.send(answerOf("body"));
        more.set_value(connection.readHead());
    });
    http::Client client;
    EXPECT_EQ(ask(client, requestOf(Way::Index, server.url())).body, "body");
    auto future = more.get_future();
    ASSERT_EQ(future.wait_for(std::chrono::seconds(30)), std::future_status::ready);
    EXPECT_EQ(future.get(), "");
}

TEST(ConnectionTest, shouldFailWhenNobodyListens)
{
    const DeafSocket deaf;
    for (const Way way : everyWay)
        EXPECT_EQ(ask(way, requestOf(way, deaf.url())).outcome.failure, Failure::Unreachable) << way;
}

TEST(ConnectionTest, shouldFailWhenTheServerNeverAccepts)
{
    DeafSocket deaf;
    deaf.fillQueue();
    for (const Way way : everyWay) {
        http::Request request = requestOf(way, deaf.url());
        request.limits.inactivity = std::chrono::milliseconds(200);
        EXPECT_EQ(ask(way, request).outcome.failure, Failure::Silent) << way;
    }
}

TEST(ConnectionTest, shouldKeepItsConnectionsFromChildren)
{
    Gate asked;
    const ScriptedServer server([&](ServerConnection& connection) {
        connection.readHead();
        asked.arrive();
        connection.waitForEnd();
    });
    http::Client client;
    client.start(requestOf(Way::Index, server.url()), std::make_shared<GatheringReceiver>(), nullptr);
    asked.waitFor(1);
    EXPECT_EQ(connectionsTo(server.port()).open, 1);
    EXPECT_EQ(connectionsTo(server.port()).inherited, 0);
}

TEST(ConnectionTest, shouldSurviveAndLeaveAloneBrokenPipes)
{
    const TlsIdentity identity;
    const ScriptedServer server(
        [](ServerConnection& connection) {
            connection.readHead();
            connection.send(answerOf("body"));
            connection.reset();
        },
        &identity);
    ASSERT_EQ(std::signal(SIGPIPE, SIG_DFL), SIG_DFL);
    for (const Way way : everyWay) {
        http::Request request = trusting(identity, server.url());
        EXPECT_NE(ask(way, request).outcome.failure, Failure::Untrusted);
    }
    struct sigaction action = {};
    sigaction(SIGPIPE, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
    sigset_t blocked;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    EXPECT_EQ(sigismember(&blocked, SIGPIPE), 0);
}

TEST(ConnectionTest, shouldPrintNothing)
{
    const TlsIdentity identity(speakingHttp2);
    const ScriptedServer server([](ServerConnection& connection) { connection.send("no frames"); }, &identity);
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    ask(Way::Index, trusting(identity, server.url()));
    ask(Way::Index, requestOf(Way::Index, server.url()));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}
