// Every fault of a server in every way this program asks, by its outcome.
#include "Encodings.h"
#include "Fault.h"

#include <gtest/gtest.h>

using http::Failure;

namespace {

void expectOutcome(const Fault& fault, Way way)
{
    const ScriptedServer server(fault.script);
    http::Request request = requestOf(way, server.url());
    request.limits = fault.limits;
    // Only icons are taken with whatever status they come.
    const bool isUnwanted = way != Way::Icon && fault.status != 200 && fault.status != 0;
    const Answer answer = ask(way, request);
    EXPECT_EQ(answer.outcome.failure, isUnwanted ? Failure::Refused : fault.failure) << fault.name;
    EXPECT_EQ(answer.outcome.status, fault.status) << fault.name;
    if (answer.outcome.isWhole()) {
        EXPECT_EQ(answer.body, fault.body) << fault.name;
    }
    EXPECT_LE(answer.body.size(), static_cast<std::size_t>(request.limits.largestBody)) << fault.name;
    EXPECT_EQ(server.requests().size(), 1) << fault.name << " is asked for once and not again";
}

class FaultTableTest : public testing::TestWithParam<std::tuple<Fault, Way>>
{
protected:
    const Fault& fault() const { return std::get<Fault>(GetParam()); }
    Way way() const { return std::get<Way>(GetParam()); }
};

constexpr auto tableNames = [](const testing::TestParamInfo<std::tuple<Fault, Way>>& info) {
    std::ostringstream name;
    name << std::get<Fault>(info.param) << "By" << std::get<Way>(info.param);
    return name.str();
};

auto inEveryWay(const std::vector<Fault>& faults)
{
    return testing::Combine(testing::ValuesIn(faults), testing::ValuesIn(everyWay));
}

} // namespace

TEST_P(FaultTableTest, shouldComeToItsOutcome)
{
    expectOutcome(fault(), way());
}

INSTANTIATE_TEST_SUITE_P(Sound, FaultTableTest, inEveryWay(soundAnswers()), tableNames);
INSTANTIATE_TEST_SUITE_P(Statuses, FaultTableTest, inEveryWay(statuses()), tableNames);
INSTANTIATE_TEST_SUITE_P(BrokenHeads, FaultTableTest, inEveryWay(brokenHeads()), tableNames);
INSTANTIATE_TEST_SUITE_P(BrokenBodies, FaultTableTest, inEveryWay(brokenBodies()), tableNames);
INSTANTIATE_TEST_SUITE_P(Encoded, FaultTableTest, inEveryWay(encodedBodies()), tableNames);
INSTANTIATE_TEST_SUITE_P(Endless, FaultTableTest, inEveryWay(endlessAnswers()), tableNames);

namespace {

class EveryWayTest : public testing::TestWithParam<Way>
{
};

// What has to come of an answer: its body is there without the very last byte of the line that ends the chunks.
std::vector<std::string> neededAnswers()
{
    std::string chunked = chunkedAnswerOf("body", 2);
    chunked.pop_back();
    return { answerOf("body"), chunked };
}

constexpr auto wayNames = [](const testing::TestParamInfo<Way>& info) {
    std::ostringstream name;
    name << info.param;
    return name.str();
};

} // namespace

TEST_P(EveryWayTest, shouldNeverTakeAnAnswerThatEndsEarlyForWhole)
{
    for (const std::string& needed : neededAnswers()) {
        const std::size_t headLength = needed.find("\r\n\r\n") + 4;
        for (std::size_t offset = 0; offset < needed.size(); ++offset) {
            const ScriptedServer server(ScriptedServer::answer(needed.substr(0, offset)));
            const Answer answer = ask(GetParam(), requestOf(GetParam(), server.url()));
            EXPECT_EQ(answer.outcome.failure, offset < headLength ? Failure::NoAnswer : Failure::BrokenBody) << offset;
        }
    }
}

// What came before a reset may be lost with it, so that only the failure is sure.
TEST_P(EveryWayTest, shouldNeverTakeAnAnswerThatIsResetForWhole)
{
    for (const std::string& needed : neededAnswers()) {
        for (std::size_t offset = 0; offset < needed.size(); ++offset) {
            const ScriptedServer server(resetAfter(needed.substr(0, offset)));
            const Failure failure = ask(GetParam(), requestOf(GetParam(), server.url())).outcome.failure;
            EXPECT_TRUE(failure == Failure::NoAnswer || failure == Failure::BrokenBody) << offset << failure;
        }
    }
}

// These take their time, so they run side by side.
TEST_P(EveryWayTest, shouldWaitForSlowAnswersAndNotForSilentOnes)
{
    std::vector<std::jthread> waiting;
    for (const Fault& fault : slowAnswers())
        waiting.emplace_back([fault] { expectOutcome(fault, GetParam()); });
}

INSTANTIATE_TEST_SUITE_P(All, EveryWayTest, testing::ValuesIn(everyWay), wayNames);
