// Many requests at once, and how they end when somebody wants them to.
#include "http/Fetch.h"

#include "tests/http/Encodings.h"
#include "tests/http/Gate.h"
#include "tests/http/ScriptedServer.h"
#include "tests/http/Ways.h"
#include "tests/support/Packing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <future>
#include <unistd.h>

using http::Failure;

namespace {

// Never answers; tells when a request is there.
ScriptedServer::Script holding(Gate& asked)
{
    return [&asked](ServerConnection& connection) {
        connection.readHead();
        asked.arrive();
        connection.waitForEnd();
    };
}

http::Request patient(Way way, const std::string& url)
{
    http::Request request = requestOf(way, url);
    request.limits.inactivity = std::chrono::hours(1);
    return request;
}

// Whether every thread of this process but the one that asks sleeps at one time or another.
bool comesToRest()
{
    const auto isAwake = [](const std::filesystem::directory_entry& thread) {
        std::ifstream file(thread.path() / "stat");
        const std::string stat{ std::istreambuf_iterator<char>(file), {} };
        return stat.find(") R ") != std::string::npos && thread.path().filename() != std::to_string(gettid());
    };
    const std::filesystem::path threads = "/proc/self/task";
    for (int tries = 0; tries < 3000; ++tries) {
        const std::filesystem::directory_iterator each(threads);
        if (std::none_of(begin(each), end(each), isAwake))
            return true;
        std::this_thread::yield();
    }
    return false;
}

class CountingReceiver : public http::Receiver
{
public:
    explicit CountingReceiver(int wanted)
        : m_wanted(wanted)
    {
    }

    bool begin(int /*status*/) override { return true; }
    bool receive(std::string_view /*piece*/) override { return ++pieces < m_wanted; }

    int pieces = 0;

private:
    int m_wanted;
};

} // namespace

TEST(ClientTest, shouldRunAllRequestsAtOnce)
{
    constexpr int many = 40;
    Gate asked;
    const ScriptedServer server([&](ServerConnection& connection) {
        connection.readHead();
        asked.arrive();
        asked.waitFor(many);
        connection.send(answerOf("body"));
    });
    Gate done;
    http::Client client;
    for (int count = 0; count < many; ++count)
        client.start(requestOf(Way::Index, server.url()), std::make_shared<GatheringReceiver>(),
            [&](const http::Outcome& outcome) {
                EXPECT_EQ(outcome.failure, Failure::None);
                done.arrive();
            });
    done.waitFor(many);
}

TEST(ClientTest, shouldNotHoldUpOthersWhileAServerIsSilent)
{
    Gate asked;
    const ScriptedServer silent(holding(asked));
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")));
    http::Client client;
    client.start(patient(Way::Index, silent.url()), std::make_shared<GatheringReceiver>(), nullptr);
    asked.waitFor(1);
    EXPECT_EQ(ask(client, requestOf(Way::Index, server.url())).body, "body");
}

TEST(ClientTest, shouldTakeRequestsFromEveryThread)
{
    constexpr int threads = 4;
    constexpr int each = 10;
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")));
    http::Client client;
    std::vector<std::jthread> asking;
    for (int thread = 0; thread < threads; ++thread)
        asking.emplace_back([&] {
            for (int count = 0; count < each; ++count)
                EXPECT_EQ(ask(client, requestOf(Way::Index, server.url())).body, "body");
        });
}

TEST(ClientTest, shouldTakeRequestsFromACompletion)
{
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")));
    http::Client client;
    Gate done;
    const auto start = [&](const http::Client::Done& then) {
        client.start(requestOf(Way::Index, server.url()), std::make_shared<GatheringReceiver>(), then);
    };
    start([&](const http::Outcome&) { start([&](const http::Outcome&) { done.arrive(); }); });
    done.waitFor(1);
    EXPECT_EQ(server.requests().size(), 2);
}

TEST(ClientTest, shouldNotCallBackInsideStart)
{
    http::Client client;
    std::promise<std::thread::id> caller;
    client.start(requestOf(Way::Index, "nothing"), std::make_shared<GatheringReceiver>(),
        [&](const http::Outcome&) { caller.set_value(std::this_thread::get_id()); });
    EXPECT_NE(caller.get_future().get(), std::this_thread::get_id());
}

TEST(ClientTest, shouldCallTheCompletionOnceAndLetTheReceiverGoBefore)
{
    const ScriptedServer server(ScriptedServer::answer(answerOf("body")));
    Gate done;
    std::weak_ptr<GatheringReceiver> watched;
    {
        http::Client client;
        auto receiver = std::make_shared<GatheringReceiver>();
        watched = receiver;
        client.start(requestOf(Way::Index, server.url()), std::move(receiver), [&](const http::Outcome&) {
            EXPECT_TRUE(watched.expired());
            done.arrive();
        });
        done.waitFor(1);
    }
    EXPECT_EQ(done.arrived(), 1);
}

TEST(ClientTest, shouldEndWithoutWaitingForTheServerWhenToldToStop)
{
    for (const std::string& beginning : { std::string(), "HTTP/1.1 200 OK\r\n\r\nbo" + std::string() })
        for (const Way way : everyWay) {
            Gate asked;
            const ScriptedServer server([&](ServerConnection& connection) {
                connection.readHead();
                connection.send(beginning);
                asked.arrive();
                connection.waitForEnd();
            });
            std::stop_source stop;
            const std::jthread stopping([&] {
                asked.waitFor(1);
                stop.request_stop();
            });
            EXPECT_EQ(ask(way, patient(way, server.url()), stop.get_token()).outcome.failure, Failure::Cancelled)
                << way;
        }
}

TEST(ClientTest, shouldEndAnEndlessTransferWhenToldToStop)
{
    for (const Way way : everyWay) {
        Gate asked;
        const ScriptedServer server([&](ServerConnection& connection) {
            connection.readHead();
            bool isThere = connection.send("HTTP/1.1 200 OK\r\n\r\n");
            asked.arrive();
            while (isThere)
                isThere = connection.send("x");
        });
        std::stop_source stop;
        const std::jthread stopping([&] {
            asked.waitFor(1);
            stop.request_stop();
        });
        EXPECT_EQ(ask(way, patient(way, server.url()), stop.get_token()).outcome.failure, Failure::Cancelled) << way;
    }
}

TEST(ClientTest, shouldAskForNothingWhenToldToStopBefore)
{
    Gate asked;
    const ScriptedServer server(holding(asked));
    std::stop_source stop;
    stop.request_stop();
    for (const Way way : everyWay)
        EXPECT_EQ(ask(way, patient(way, server.url()), stop.get_token()).outcome.failure, Failure::Cancelled) << way;
    EXPECT_TRUE(server.requests().empty());
}

TEST(ClientTest, shouldSleepWhileNothingComes)
{
    Gate asked;
    const ScriptedServer server(holding(asked));
    http::Client client;
    client.start(patient(Way::Index, server.url()), std::make_shared<GatheringReceiver>(), nullptr);
    asked.waitFor(1);
    EXPECT_TRUE(comesToRest());
}

TEST(ClientTest, shouldDropEverythingWithoutAWordWhenItGoes)
{
    constexpr int many = 5;
    Gate asked;
    const ScriptedServer server(holding(asked));
    std::vector<std::weak_ptr<GatheringReceiver>> watched;
    {
        http::Client client;
        for (int count = 0; count < many; ++count) {
            auto receiver = std::make_shared<GatheringReceiver>();
            watched.emplace_back(receiver);
            client.start(patient(Way::Index, server.url()), std::move(receiver),
                [](const http::Outcome&) { ADD_FAILURE() << "called although the client goes"; });
        }
        asked.waitFor(many);
    }
    for (const auto& receiver : watched)
        EXPECT_TRUE(receiver.expired());
}

TEST(ClientTest, shouldEndAtOnceWhenTheReceiverWantsNoMore)
{
    const ScriptedServer server([](ServerConnection& connection) {
        connection.readHead();
        bool isThere = connection.send("HTTP/1.1 200 OK\r\n\r\n");
        while (isThere)
            isThere = connection.send(std::string(4096, 'x'));
    });
    CountingReceiver receiver(3);
    EXPECT_EQ(http::fetch(requestOf(Way::Archive, server.url()), receiver).failure, Failure::Refused);
    EXPECT_EQ(receiver.pieces, 3);
}

TEST(ClientTest, shouldNotReadTheBodyOfAnAnswerThatIsNotWanted)
{
    const ScriptedServer server([](ServerConnection& connection) {
        connection.readHead();
        bool isThere = connection.send("HTTP/1.1 404 Not Found\r\n\r\n");
        while (isThere)
            isThere = connection.send(std::string(4096, 'x'));
    });
    for (const Way way : { Way::Index, Way::Archive }) {
        const Answer answer = ask(way, patient(way, server.url()));
        EXPECT_EQ(answer.outcome.failure, Failure::Refused) << way;
        EXPECT_EQ(answer.outcome.status, 404) << way;
    }
}

TEST(ClientTest, shouldDeliverNothingOfAnAnswerWhoseLengthsContradictEachOther)
{
    const ScriptedServer server(ScriptedServer::answer(answerOf("body", "Content-Length: 2\r\n")));
    GatheringReceiver receiver;
    EXPECT_EQ(http::fetch(requestOf(Way::Archive, server.url()), receiver).failure, Failure::NoAnswer);
    EXPECT_EQ(receiver.beginnings, 0);
    EXPECT_EQ(receiver.body, "");
}

TEST(ClientTest, shouldDeliverAnEncodedBodyInSmallPieces)
{
    const std::string body(1000000, 'x');
    const ScriptedServer server(ScriptedServer::answer(answerOf(gzipped(body), "Content-Encoding: gzip\r\n")));
    GatheringReceiver receiver;
    EXPECT_TRUE(http::fetch(requestOf(Way::Archive, server.url()), receiver).isWhole());
    EXPECT_EQ(receiver.body, body);
    EXPECT_EQ(receiver.beginnings, 1);
    EXPECT_LE(receiver.longestPiece, 16384);
}
