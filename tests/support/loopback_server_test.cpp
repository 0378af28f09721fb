#include "tests/support/LoopbackServer.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTcpSocket>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int patience = 20000;

struct Answer
{
    int status = 0;
    QByteArray body;
    QNetworkReply::NetworkError error = QNetworkReply::NoError;
};

Answer get(const LoopbackServer& server, const QString& path)
{
    QNetworkAccessManager network;
    const std::unique_ptr<QNetworkReply> reply(network.get(QNetworkRequest(QUrl(server.url(path)))));
    EXPECT_TRUE(QTest::qWaitFor([&] { return reply->isFinished(); }, patience));
    return { reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), reply->readAll(), reply->error() };
}

// The error that a client meets who reads on until the connection is no more: 0 at an ordinary end. It has a socket of
// the system's own, for Qt takes a reset for such an end.
int endOf(const LoopbackServer& server, const QByteArray& path)
{
    const int client = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(server.port());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(::connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    const QByteArray request = "GET " + path + " HTTP/1.1\r\n\r\n";
    EXPECT_EQ(
        ::send(client, request.constData(), static_cast<std::size_t>(request.size()), MSG_NOSIGNAL), request.size());
    int error = 0;
    const auto hasEnded = [&] {
        std::array<char, 100> bytes{};
        const ssize_t received = ::recv(client, bytes.data(), bytes.size(), MSG_DONTWAIT);
        error = received < 0 ? errno : 0;
        return received <= 0 && error != EAGAIN;
    };
    EXPECT_TRUE(QTest::qWaitFor(hasEnded, patience));
    ::close(client);
    return error;
}

} // namespace

TEST(LoopbackServer, answersWhatItWasGivenAnd404Otherwise)
{
    LoopbackServer server;
    server.serve("/a?b=c", "body");
    EXPECT_EQ(get(server, QStringLiteral("/a?b=c")).body, "body");
    EXPECT_EQ(get(server, QStringLiteral("/a?b=c")).status, 200);
    EXPECT_EQ(get(server, QStringLiteral("/a")).status, 404);
    EXPECT_EQ(server.requestedPaths(), std::vector<QByteArray>({ "/a?b=c", "/a?b=c", "/a" }));
    EXPECT_FALSE(server.requests()[0].header("host").isNull());
    EXPECT_TRUE(server.requests()[0].header("no-such").isNull());
}

TEST(LoopbackServer, servesABlockingClientOnTheSameThread)
{
    LoopbackServer server;
    server.serve("/a", "body");
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, server.port());
    ASSERT_TRUE(socket.waitForConnected(patience));
    socket.write("GET /a HTTP/1.1\r\nHost: x\r\n\r\n");
    QByteArray received;
    while (!received.endsWith("body") && socket.waitForReadyRead(patience))
        received += socket.readAll();
    EXPECT_TRUE(received.startsWith("HTTP/1.1 200"));
}

TEST(LoopbackServer, sendsFillerWithoutKeepingIt)
{
    LoopbackServer server;
    LoopbackServer::Reply reply;
    reply.body = "start";
    reply.fillerSize = 3000000;
    server.setReply("/a", reply);
    const Answer answer = get(server, QStringLiteral("/a"));
    EXPECT_EQ(answer.body.size(), 3000005);
    EXPECT_TRUE(answer.body.startsWith("startxxx"));
}

TEST(LoopbackServer, holdsAReplyBackUntilItIsReleased)
{
    LoopbackServer server;
    LoopbackServer::Reply reply;
    reply.body = "late";
    reply.timing = LoopbackServer::Timing::Held;
    server.setReply("/a", reply);
    QNetworkAccessManager network;
    const std::unique_ptr<QNetworkReply> held(network.get(QNetworkRequest(QUrl(server.url(QStringLiteral("/a"))))));
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.requests().size() == 1; }, patience));
    EXPECT_FALSE(held->isFinished());
    server.release("/a");
    ASSERT_TRUE(QTest::qWaitFor([&] { return held->isFinished(); }, patience));
    EXPECT_EQ(held->readAll(), "late");
    EXPECT_EQ(get(server, QStringLiteral("/a")).body, "late");
}

TEST(LoopbackServer, breaksOffAndResetsAndTalksNonsenseOnRequest)
{
    LoopbackServer server;
    LoopbackServer::Reply reply;
    reply.body = "part";
    reply.declaredLength = 100;
    reply.ending = LoopbackServer::Ending::Close;
    server.setReply("/close", reply);
    reply.ending = LoopbackServer::Ending::Reset;
    server.setReply("/reset", reply);
    reply.garbage = "nonsense";
    server.setReply("/garbage", reply);
    EXPECT_EQ(endOf(server, "/close"), 0);
    EXPECT_EQ(endOf(server, "/reset"), ECONNRESET);
    EXPECT_NE(get(server, QStringLiteral("/garbage")).error, QNetworkReply::NoError);
}
