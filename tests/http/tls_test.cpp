// Whom a secure connection trusts, and what it is good for.
#include "tests/http/Encodings.h"
#include "tests/http/Fault.h"
#include "tests/http/ScriptedServer.h"
#include "tests/http/Ways.h"

#include <gtest/gtest.h>

using http::Failure;

namespace {

http::Request trusting(const TlsIdentity& identity, Way way, const std::string& url)
{
    http::Request request = requestOf(way, url);
    request.authorities = identity.authorities();
    return request;
}

void expectMistrust(const TlsCertificate& certificate)
{
    const TlsIdentity identity(certificate);
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")), &identity);
    for (const Way way : everyWay)
        EXPECT_EQ(ask(way, trusting(identity, way, server.url())).outcome.failure, Failure::Untrusted) << way;
    EXPECT_TRUE(server.requests().empty());
}

std::string leadingTo(const std::string& location)
{
    return "HTTP/1.1 302 Found\r\nLocation: " + location + "\r\nContent-Length: 0\r\n\r\n";
}

} // namespace

TEST(TlsTest, shouldTrustItsAuthority)
{
    const TlsIdentity identity;
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")), &identity);
    for (const Way way : everyWay)
        EXPECT_EQ(ask(way, trusting(identity, way, server.url())).body, "body") << way;
}

TEST(TlsTest, shouldSendTheSameRequestAsWithoutIt)
{
    const TlsIdentity identity;
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")), &identity);
    ask(Way::Index, trusting(identity, Way::Index, server.url("/Packages")));
    EXPECT_EQ(server.requests(),
        std::vector{ "GET /Packages HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(server.port())
            + "\r\nUser-Agent: " + std::string(testUserAgent) + "\r\n\r\n" });
}

TEST(TlsTest, shouldNotTrustACertificateThatSignedItself)
{
    expectMistrust({ .signer = TlsCertificate::Signer::Itself });
}

TEST(TlsTest, shouldNotTrustAnExpiredCertificate)
{
    expectMistrust({ .validity = TlsCertificate::Validity::Expired });
}

TEST(TlsTest, shouldNotTrustTheCertificateOfAnotherHost)
{
    expectMistrust({ .host = "127.0.0.2" });
    expectMistrust({ .host = "example.org" });
}

TEST(TlsTest, shouldNotTrustAnAuthorityThatTheSystemDoesNotKnow)
{
    const TlsIdentity identity;
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")), &identity);
    for (const Way way : everyWay)
        EXPECT_EQ(ask(way, requestOf(way, server.url())).outcome.failure, Failure::Untrusted) << way;
}

TEST(TlsTest, shouldTrustNobodyWithoutTheFileOfAuthorities)
{
    const TlsIdentity identity;
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")), &identity);
    http::Request request = requestOf(Way::Index, server.url());
    request.authorities = identity.authorities() + "-missing";
    EXPECT_EQ(ask(Way::Index, request).outcome.failure, Failure::Untrusted);
}

TEST(TlsTest, shouldFailWhenTheServerSpeaksNoTLS)
{
    const TlsIdentity identity;
    const ScriptedServer server([](ServerConnection& connection) {
        connection.send("HTTP/1.1 400 Bad Request\r\n\r\n");
        connection.waitForEnd();
    });
    const std::string url = "https://127.0.0.1:" + std::to_string(server.port()) + "/";
    for (const Way way : everyWay)
        EXPECT_EQ(ask(way, trusting(identity, way, url)).outcome.failure, Failure::Untrusted) << way;
}

TEST(TlsTest, shouldFailWhenTheServerIsSilentAsTLSBegins)
{
    const ScriptedServer server([](ServerConnection& connection) { connection.waitForEnd(); });
    for (const Way way : everyWay) {
        http::Request request = requestOf(way, "https://127.0.0.1:" + std::to_string(server.port()) + "/");
        request.limits.inactivity = std::chrono::milliseconds(200);
        EXPECT_EQ(ask(way, request).outcome.failure, Failure::Silent) << way;
    }
}

// The connection that led there stays open, and is silent meanwhile.
TEST(TlsTest, shouldWaitForAHeaderLineThatComesSlowlyAlsoAfterARedirect)
{
    const TlsIdentity identity;
    const std::string slowLine = "X-Long: " + std::string(100, 'x') + "\r\n";
    const ScriptedServer slow(
        [&](ServerConnection& connection) {
            connection.readHead();
            connection.drip(answerOf("body", slowLine), std::chrono::milliseconds(5));
        },
        &identity);
    const ScriptedServer first(silentAfter(leadingTo(slow.url())), &identity);
    for (const ScriptedServer* server : { &slow, &first }) {
        http::Request request = trusting(identity, Way::Index, server->url());
        request.limits = impatient();
        EXPECT_EQ(ask(Way::Index, request).body, "body");
    }
}

// Many servers leave out the end that TLS asks for. Without a length nobody can tell then whether a body is whole.
TEST(TlsTest, shouldTakeABodyWithoutLengthAsItComes)
{
    const TlsIdentity identity;
    const std::string bytes = "HTTP/1.1 200 OK\r\n\r\nbody";
    const ScriptedServer abrupt(ScriptedServer::answer(bytes), &identity);
    const ScriptedServer orderly(
        [&](ServerConnection& connection) {
            connection.readHead();
            connection.send(bytes);
            connection.endTls();
        },
        &identity);
    for (const Way way : everyWay)
        for (const ScriptedServer* server : { &abrupt, &orderly })
            EXPECT_EQ(ask(way, trusting(identity, way, server->url())).body, "body") << way;
}

TEST(TlsTest, shouldFailWhenABodyWithALengthBreaksOff)
{
    const TlsIdentity identity;
    const std::string chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nbody\r\n";
    for (const std::string& bytes : { "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nbody" + std::string(), chunked }) {
        const ScriptedServer server(ScriptedServer::answer(bytes), &identity);
        for (const Way way : everyWay)
            EXPECT_EQ(ask(way, trusting(identity, way, server.url())).outcome.failure, Failure::BrokenBody) << way;
    }
}

TEST(TlsTest, shouldFollowFromPlainToSecureAndFromSecureToSecure)
{
    const TlsIdentity identity;
    const ScriptedServer target(ScriptedServer::answer(answerOf("body")), &identity);
    const ScriptedServer secure(ScriptedServer::answer(leadingTo(target.url())), &identity);
    const ScriptedServer plain(ScriptedServer::answer(leadingTo(target.url())));
    for (const Way way : everyWay)
        for (const ScriptedServer* server : { &secure, &plain })
            EXPECT_EQ(ask(way, trusting(identity, way, server->url())).body, "body") << way;
}

TEST(TlsTest, shouldNotFollowFromSecureToPlain)
{
    const TlsIdentity identity;
    const ScriptedServer plain(ScriptedServer::answer(answerOf("body")));
    const ScriptedServer secure(ScriptedServer::answer(leadingTo(plain.url())), &identity);
    // There and back: from plain to secure, and then to plain again.
    const ScriptedServer first(ScriptedServer::answer(leadingTo(secure.url())));
    for (const Way way : everyWay)
        for (const ScriptedServer* server : { &secure, &first })
            EXPECT_EQ(ask(way, trusting(identity, way, server->url())).outcome.failure, Failure::BadRedirect) << way;
    EXPECT_EQ(plain.connectionCount(), 0);
}
