#pragma once

#include "ScriptedServer.h"
#include "Ways.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

// One way in which a server answers, rightly or wrongly, and what comes of it.
struct Fault
{
    // Letters and digits alone.
    std::string name;
    ScriptedServer::Script script;
    http::Failure failure = http::Failure::None;
    // Of the answer whose head comes whole; 0 when none does.
    int status = 200;
    // What has arrived at the end of an answer that is whole.
    std::string body;
    http::Limits limits;
};

std::ostream& operator<<(std::ostream& out, const Fault& fault);

// Limits that end a wait in the test's time.
http::Limits impatient();
// A server that goes on sending the same for as long as somebody listens.
ScriptedServer::Script endless(std::string beginning, std::string repeated);
// A server that sends so much, then nothing more, and closes nothing.
ScriptedServer::Script silentAfter(std::string beginning);
// A server that sends so much and then resets the connection.
ScriptedServer::Script resetAfter(std::string beginning);

// The tables.
std::vector<Fault> soundAnswers();
std::vector<Fault> statuses();
std::vector<Fault> brokenHeads();
std::vector<Fault> brokenBodies();
std::vector<Fault> encodedBodies();
std::vector<Fault> endlessAnswers();
std::vector<Fault> slowAnswers();
