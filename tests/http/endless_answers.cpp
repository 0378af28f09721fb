// Answers that have no end, or take too long to come to it.
#include "tests/http/Encodings.h"
#include "tests/http/Fault.h"
#include "tests/support/Packing.h"

using http::Failure;

namespace {

constexpr std::chrono::milliseconds dripPause(5);
const std::string okHead = "HTTP/1.1 200 OK\r\n";

http::Limits small()
{
    http::Limits limits;
    limits.largestBody = 100000;
    return limits;
}

// A transfer has to come at 1 MB/s after half a second.
http::Limits swift()
{
    http::Limits limits;
    limits.patience = std::chrono::milliseconds(500);
    limits.slowestRate = 1000000;
    return limits;
}

Fault tooLarge(const std::string& name, const ScriptedServer::Script& script, int status = 200)
{
    return { .name = name, .script = script, .failure = Failure::TooLarge, .status = status, .limits = small() };
}

// The library itself ends what it cannot keep: it takes no line of such a length for HTTP.
Fault noAnswer(const std::string& name, const ScriptedServer::Script& script)
{
    return { .name = name, .script = script, .failure = Failure::NoAnswer, .status = 0 };
}

Fault silent(const std::string& name, const std::string& beginning, int status)
{
    return { .name = name,
        .script = silentAfter(beginning),
        .failure = Failure::Silent,
        .status = status,
        .limits = impatient() };
}

ScriptedServer::Script dripping(const std::string& bytes)
{
    return [bytes](ServerConnection& connection) {
        connection.readHead();
        connection.drip(bytes, dripPause);
    };
}

Fault dripped(const std::string& name, const std::string& bytes, const std::string& body)
{
    return { .name = name, .script = dripping(bytes), .body = body, .limits = impatient() };
}

Fault tooSlow(const std::string& name, const ScriptedServer::Script& script, int status, const http::Limits& limits)
{
    return { .name = name, .script = script, .failure = Failure::TooSlow, .status = status, .limits = limits };
}

// An empty block of a stream that goes on, again and again: much comes and nothing of it is a body.
std::string emptyBlocks()
{
    std::string blocks;
    for (int count = 0; count < 1000; ++count)
        blocks += std::string("\x00\x00\x00\xff\xff", 5);
    return blocks;
}

http::Limits withDeadline()
{
    http::Limits limits;
    limits.deadline = std::chrono::milliseconds(500);
    return limits;
}

} // namespace

std::vector<Fault> endlessAnswers()
{
    const std::string piece(4096, 'x');
    const std::string gzipHead = okHead + "Content-Encoding: gzip\r\n\r\n";
    const std::string gzipBeginning("\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\xff", 10);
    const std::string bomb = gzipped(std::string(4000000, '\0'));
    return {
        tooLarge("endlessBody", endless(okHead + "\r\n", piece)),
        tooLarge("endlessChunks", endless(okHead + "Transfer-Encoding: chunked\r\n\r\n", "1000\r\n" + piece + "\r\n")),
        tooLarge("endlessEmptyBlocks", endless(gzipHead + gzipBeginning, emptyBlocks())),
        tooLarge("tellsOfTooMuch", silentAfter(okHead + "Content-Length: 100001\r\n\r\n")),
        tooLarge("encodingBomb", ScriptedServer::answer(answerOf(bomb, "Content-Encoding: gzip\r\n"))),
        tooLarge("encodingBombThatComesToNoEnd", silentAfter(gzipHead + bomb.substr(0, bomb.size() - 10))),
        tooLarge("endlessHeaders", endless(okHead, "X-More: and more\r\n"), 0),
        noAnswer("endlessHeaderLine", endless(okHead + "X-Long: ", piece)),
        noAnswer("endlessStatusLine", endless("HTTP/1.1 200 ", piece)),
        tooLarge("endlessInterimAnswers", endless("", "HTTP/1.1 100 Continue\r\n\r\n"), 0),
        tooLarge("endlessTrailers",
            endless(okHead + "Transfer-Encoding: chunked\r\n\r\n4\r\nbody\r\n0\r\n", "X-More: and more\r\n")),
    };
}

std::vector<Fault> slowAnswers()
{
    const std::string text(100, 'x');
    const std::string chunkedHead = okHead + "Transfer-Encoding: chunked\r\n\r\n";
    return {
        silent("silentFromTheStart", "", 0),
        silent("silentInTheHead", okHead + "Content-", 0),
        silent("silentAfterAnInterimAnswer", "HTTP/1.1 100 Continue\r\n\r\n", 0),
        silent("silentBeforeTheBody", okHead + "Content-Length: 5\r\n\r\n", 200),
        silent("silentInTheBody", okHead + "Content-Length: 5\r\n\r\nbody", 200),
        silent("silentBetweenChunks", chunkedHead + "4\r\nbody\r\n", 200),
        silent("silentInAnEncodedBody", okHead + "Content-Encoding: gzip\r\n\r\n" + gzipped("body").substr(0, 12), 200),
        dripped("drippedBody", answerOf(text), text),
        dripped("drippedStatusLine", "HTTP/1.1 200 " + text + text + "\r\nContent-Length: 4\r\n\r\nbody", "body"),
        dripped("drippedHeaderLine", answerOf("body", "X-Long: " + text + "\r\n"), "body"),
        dripped("drippedChunks", chunkedAnswerOf(text, 10), text),
        dripped("drippedEncodedBody", answerOf(gzipped("body"), "Content-Encoding: gzip\r\nX-Long: " + text + "\r\n"),
            "body"),
        tooSlow("endlessDripOfABody", dripping(okHead + "\r\n" + std::string(100000, 'x')), 200, swift()),
        tooSlow("endlessDripOfAHead", dripping(okHead + "X-Long: " + std::string(100000, 'x')), 0, swift()),
        tooSlow("beyondTheDeadline", endless(okHead + "\r\n", "x"), 200, withDeadline()),
    };
}
