// HTTP/2 behaves as HTTP/1.1 does, whatever breaks.
#include "tests/http/Encodings.h"
#include "tests/http/Gate.h"
#include "tests/http/Http2Frames.h"
#include "tests/http/Ways.h"
#include "tests/support/Packing.h"

#include <gtest/gtest.h>

#include <future>

using http::Failure;
using http2::After;
using http2::data;
using http2::End;
using http2::headers;
using http2::reset;

namespace {

const std::vector<http2::Header> ok{ { ":status", "200" } };

std::vector<http2::Header> okWith(const std::string& name, const std::string& value)
{
    return { { ":status", "200" }, { name, value } };
}

// A reset overtakes what was sent just before it, so that the head may be lost with the body.
enum class Head { Comes, MayBeLost };

// What a server does about one request, and what comes of it.
struct Http2Fault
{
    std::string name;
    std::function<std::string(std::uint32_t stream)> bytes;
    After after = After::GoOn;
    Head head = Head::Comes;
    Failure failure = Failure::None;
    int status = 200;
    std::string body;
    http::Limits limits;
};

std::ostream& operator<<(std::ostream& out, const Http2Fault& fault)
{
    return out << fault.name;
}

http::Limits smallAndImpatient()
{
    http::Limits limits;
    limits.inactivity = std::chrono::milliseconds(300);
    limits.largestBody = 1000;
    return limits;
}

std::string leadOn(std::uint32_t id)
{
    constexpr std::uint32_t firstStream = 1;
    if (id == firstStream)
        return headers(id, { { ":status", "302" }, { "location", "/there" } }, End::Stream);
    return headers(id, ok) + data(id, "body", End::Stream);
}

std::vector<Http2Fault> soundAnswers()
{
    const std::string text(5000, 'x');
    return {
        { .name = "whole",
            .bytes = [](auto id) { return headers(id, ok) + data(id, "bo") + data(id, "dy", End::Stream); },
            .body = "body" },
        { .name = "wholeWithLength",
            .bytes = [](auto id) { return headers(id, okWith("content-length", "4")) + data(id, "body", End::Stream); },
            .body = "body" },
        { .name = "empty", .bytes = [](auto id) { return headers(id, ok, End::Stream); } },
        { .name = "emptyLastFrame",
            .bytes = [](auto id) { return headers(id, ok) + data(id, "body") + data(id, "", End::Stream); },
            .body = "body" },
        { .name = "earlyHintsFirst",
            .bytes =
                [](auto id) {
                    return headers(id, { { ":status", "103" }, { "link", "</a>" } }) + headers(id, ok)
                        + data(id, "body", End::Stream);
                },
            .body = "body" },
        { .name = "trailers",
            .bytes =
                [](auto id) {
                    return headers(id, ok) + data(id, "body") + headers(id, { { "x-sum", "1" } }, End::Stream);
                },
            .body = "body" },
        { .name = "gzip",
            .bytes =
                [text](auto id) {
                    return headers(id, okWith("content-encoding", "gzip")) + data(id, gzipped(text), End::Stream);
                },
            .body = text },
        { .name = "notFound",
            .bytes =
                [](auto id) {
                    return headers(id, { { ":status", "404" } }) + data(id, "none", End::Stream);
                },
            .status = 404,
            .body = "none" },
        { .name = "movedOn", .bytes = leadOn, .body = "body" },
    };
}

std::vector<Http2Fault> brokenAnswers()
{
    const auto unfinished = [](auto id) { return headers(id, ok) + data(id, "body"); };
    return {
        { .name = "cutByTheEndOfTheConnection",
            .bytes = unfinished,
            .after = After::Close,
            .failure = Failure::BrokenBody },
        { .name = "cutWithLength",
            .bytes = [](auto id) { return headers(id, okWith("content-length", "5")) + data(id, "body"); },
            .after = After::Close,
            .failure = Failure::BrokenBody },
        { .name = "cutByAReset",
            .bytes = [=](auto id) { return unfinished(id) + reset(id, http2::internalError); },
            .head = Head::MayBeLost,
            .failure = Failure::BrokenBody },
        { .name = "cutByAResetWithoutError",
            .bytes = [=](auto id) { return unfinished(id) + reset(id, http2::noError); },
            .head = Head::MayBeLost,
            .failure = Failure::BrokenBody },
        { .name = "cutByGoingAway",
            .bytes = [=](auto id) { return unfinished(id) + http2::goAway(0, http2::internalError); },
            .after = After::Close,
            .head = Head::MayBeLost,
            .failure = Failure::BrokenBody },
        { .name = "shorterThanItsLength",
            .bytes = [](auto id) { return headers(id, okWith("content-length", "5")) + data(id, "body", End::Stream); },
            .head = Head::MayBeLost,
            .failure = Failure::BrokenBody },
        { .name = "longerThanItsLength",
            .bytes = [](auto id) { return headers(id, okWith("content-length", "3")) + data(id, "body", End::Stream); },
            .head = Head::MayBeLost,
            .failure = Failure::BrokenBody },
        { .name = "gzipCut",
            .bytes =
                [](auto id) {
                    return headers(id, okWith("content-encoding", "gzip")) + data(id, gzipped("x").substr(0, 12));
                },
            .after = After::Close,
            .failure = Failure::BrokenBody },
        { .name = "nothingAtAll",
            .bytes = [](auto) { return std::string(); },
            .after = After::Close,
            .failure = Failure::NoAnswer,
            .status = 0 },
        { .name = "resetBeforeTheAnswer",
            .bytes = [](auto id) { return reset(id, http2::internalError); },
            .failure = Failure::NoAnswer,
            .status = 0 },
        { .name = "refusedBeforeTheAnswer",
            .bytes = [](auto id) { return reset(id, http2::refusedStream); },
            .failure = Failure::NoAnswer,
            .status = 0 },
        { .name = "goesAwayBeforeTheAnswer",
            .bytes = [](auto) { return http2::goAway(0, http2::noError); },
            .after = After::Close,
            .failure = Failure::NoAnswer,
            .status = 0 },
        { .name = "bodyWithoutHead",
            .bytes = [](auto id) { return data(id, "body", End::Stream); },
            .failure = Failure::NoAnswer,
            .status = 0 },
        { .name = "headWithoutStatus",
            .bytes =
                [](auto id) {
                    return headers(id, { { "x-own", "1" } }) + data(id, "body", End::Stream);
                },
            .failure = Failure::NoAnswer,
            .status = 0 },
        { .name = "noFrames",
            .bytes = [](auto) { return std::string("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nbody"); },
            .failure = Failure::NoAnswer,
            .status = 0 },
        { .name = "tooLarge",
            .bytes = [](auto id) { return headers(id, ok) + data(id, std::string(2000, 'x')); },
            .failure = Failure::TooLarge,
            .limits = smallAndImpatient() },
        { .name = "silent",
            .bytes = [](auto) { return std::string(); },
            .failure = Failure::Silent,
            .status = 0,
            .limits = smallAndImpatient() },
        { .name = "silentInTheBody", .bytes = unfinished, .failure = Failure::Silent, .limits = smallAndImpatient() },
    };
}

class Http2Test : public testing::TestWithParam<std::tuple<Http2Fault, Way>>
{
};

constexpr auto caseNames = [](const testing::TestParamInfo<std::tuple<Http2Fault, Way>>& info) {
    std::ostringstream name;
    name << std::get<Http2Fault>(info.param) << "By" << std::get<Way>(info.param);
    return name.str();
};

http::Request trusting(const TlsIdentity& identity, Way way, const std::string& url)
{
    http::Request request = requestOf(way, url);
    request.authorities = identity.authorities();
    return request;
}

} // namespace

TEST_P(Http2Test, shouldComeToItsOutcome)
{
    const auto& [fault, way] = GetParam();
    const TlsIdentity identity({ .protocols = TlsCertificate::Protocols::Http2 });
    const ScriptedServer server(http2::serving([&fault = fault](ServerConnection& connection, std::uint32_t stream) {
        connection.send(fault.bytes(stream));
        return fault.after;
    }),
        &identity);
    http::Request request = trusting(identity, way, server.url());
    request.limits = fault.limits;
    const bool isUnwanted = way != Way::Icon && fault.status == 404;
    const Answer answer = ask(way, request);
    if (fault.head == Head::Comes || answer.outcome.status != 0) {
        EXPECT_EQ(answer.outcome.failure, isUnwanted ? Failure::Refused : fault.failure);
        EXPECT_EQ(answer.outcome.status, fault.status);
    } else {
        EXPECT_EQ(answer.outcome.failure, Failure::NoAnswer);
    }
    if (answer.outcome.isWhole()) {
        EXPECT_EQ(answer.body, fault.body);
    }
    EXPECT_EQ(server.requests().size(), fault.name == "movedOn" ? 2 : 1) << "asked once and not again";
}

// Bytes for one exchange are no sign of life of another one on the same connection.
TEST(Http2ConnectionTest, shouldGiveUpASilentExchangeBesideABusyOne)
{
    constexpr std::uint32_t silentStream = 1;
    const TlsIdentity identity({ .protocols = TlsCertificate::Protocols::Http2 });
    Gate asked;
    const ScriptedServer server(http2::serving([&](ServerConnection& connection, std::uint32_t stream) {
        asked.arrive();
        if (stream == silentStream)
            return After::GoOn;
        connection.send(headers(stream, ok));
        // Many times longer than the silent one is allowed to be.
        for (int count = 0; count < 300; ++count)
            connection.drip(data(stream, "x"), std::chrono::milliseconds(1));
        connection.send(headers(silentStream, ok, End::Stream) + data(stream, "", End::Stream));
        return After::GoOn;
    }),
        &identity);
    http::Client client;
    http::Request request = trusting(identity, Way::Index, server.url());
    request.limits = smallAndImpatient();
    std::promise<Failure> silent;
    client.start(request, std::make_shared<GatheringReceiver>(),
        [&](const http::Outcome& outcome) { silent.set_value(outcome.failure); });
    asked.waitFor(1);
    client.start(request, std::make_shared<GatheringReceiver>(), nullptr);
    EXPECT_EQ(silent.get_future().get(), Failure::Silent);
    EXPECT_EQ(server.connectionCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Sound, Http2Test, testing::Combine(testing::ValuesIn(soundAnswers()), testing::ValuesIn(everyWay)), caseNames);
INSTANTIATE_TEST_SUITE_P(
    Broken, Http2Test, testing::Combine(testing::ValuesIn(brokenAnswers()), testing::ValuesIn(everyWay)), caseNames);
