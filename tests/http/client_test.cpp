#include "ScriptedServer.h"
#include "Ways.h"

#include <gtest/gtest.h>

using http::Failure;

TEST(ClientTest, shouldReceiveAWholeBody)
{
    const ScriptedServer server(ScriptedServer::answer("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nwhole"));
    for (const Way way : everyWay) {
        const Answer answer = ask(way, requestOf(way, server.url("/Packages")));
        EXPECT_EQ(answer.outcome.failure, Failure::None) << way;
        EXPECT_EQ(answer.outcome.status, 200) << way;
        EXPECT_EQ(answer.body, "whole") << way;
    }
}

TEST(ClientTest, shouldFailWhenABodyBreaksOff)
{
    const ScriptedServer server(ScriptedServer::answer("HTTP/1.1 200 OK\r\nContent-Length: 6\r\n\r\nwhole"));
    for (const Way way : everyWay)
        EXPECT_EQ(ask(way, requestOf(way, server.url())).outcome.failure, Failure::BrokenBody) << way;
}
