// Answers that break off, lie or make no sense.
#include "tests/http/Encodings.h"
#include "tests/http/Fault.h"
#include "tests/support/Packing.h"

using http::Failure;

namespace {

const std::string chunkedHead = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
const std::string longText(20000, 'x');

Fault broken(const std::string& name, const std::string& bytes, Failure failure, int status = 200)
{
    return { .name = name, .script = ScriptedServer::answer(bytes), .failure = failure, .status = status };
}

Fault brokenHead(const std::string& name, const std::string& bytes)
{
    return broken(name, bytes, Failure::NoAnswer, 0);
}

Fault brokenBody(const std::string& name, const std::string& bytes)
{
    return broken(name, bytes, Failure::BrokenBody);
}

Fault encoded(const std::string& name, const std::string& bytes, const std::string& body)
{
    return { .name = name, .script = ScriptedServer::answer(bytes), .body = body };
}

// Without its last bytes, though its framing tells of nothing missing.
std::string cut(const std::string& text)
{
    return text.substr(0, text.size() - 10);
}

} // namespace

std::vector<Fault> brokenHeads()
{
    return {
        brokenHead("nothingAtAll", ""),
        brokenHead("noHTTP", "SSH-2.0-Server\r\n\r\nwelcome"),
        brokenHead("textWithoutHead", "Package: one\n\n"),
        brokenHead("statusLineOnly", "HTTP/1.1 200 OK\r\n"),
        brokenHead("halfAStatusLine", "HTTP/1.1 20"),
        brokenHead("halfAHeader", "HTTP/1.1 200 OK\r\nContent-Len"),
        brokenHead("noBlankLine", "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n"),
        brokenHead("interimAnswerOnly", "HTTP/1.1 100 Continue\r\n\r\n"),
        brokenHead("unknownVersion", "HTTP/7.0 200 OK\r\nContent-Length: 4\r\n\r\nbody"),
        brokenHead("lengthIsNoNumber", "HTTP/1.1 200 OK\r\nContent-Length: four\r\n\r\nbody"),
        brokenHead("lengthBelowNothing", "HTTP/1.1 200 OK\r\nContent-Length: -4\r\n\r\nbody"),
        broken("lengthsThatDiffer", answerOf("body", "Content-Length: 2\r\n"), Failure::NoAnswer),
        { .name = "resetBeforeTheAnswer", .script = resetAfter(""), .failure = Failure::NoAnswer, .status = 0 },
    };
}

std::vector<Fault> brokenBodies()
{
    return {
        brokenBody("cut", "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nbody"),
        brokenBody("cutBeforeItBegan", "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n"),
        brokenBody("http10Cut", "HTTP/1.0 200 OK\r\nContent-Length: 5\r\n\r\nbody"),
        brokenBody("chunkedCutBeforeItBegan", chunkedHead),
        brokenBody("chunkedCutBetweenChunks", chunkedHead + "4\r\nbody\r\n"),
        brokenBody("chunkedCutInsideAChunk", chunkedHead + "5\r\nbody"),
        brokenBody("chunkedCutInsideASize", chunkedHead + "4\r\nbody\r\n1"),
        brokenBody("chunkedCutInTheLastLine", chunkedHead + "4\r\nbody\r\n0\r\n"),
        brokenBody("chunkSizeIsNoNumber", chunkedHead + "four\r\nbody\r\n0\r\n\r\n"),
        brokenBody("chunkSizeBeyondAllNumbers", chunkedHead + "ffffffffffffffffff\r\nbody\r\n0\r\n\r\n"),
        brokenBody("chunkLongerThanItsSize", chunkedHead + "2\r\nbody\r\n0\r\n\r\n"),
    };
}

std::vector<Fault> encodedBodies()
{
    const std::string gzip = "Content-Encoding: gzip\r\n";
    const std::string withLength = answerOf(gzipped(longText), gzip);
    const std::string chunked = chunkedAnswerOf(gzipped(longText), 16, gzip);
    return {
        encoded("gzip", withLength, longText),
        encoded("gzipChunked", chunked, longText),
        encoded("gzipUntilTheConnectionEnds", "HTTP/1.1 200 OK\r\n" + gzip + "\r\n" + gzipped(longText), longText),
        encoded("deflate", answerOf(deflated(longText), "Content-Encoding: deflate\r\n"), longText),
        encoded("identity", answerOf(longText, "Content-Encoding: identity\r\n"), longText),
        encoded("gzipOfNothing", answerOf(gzipped(""), gzip), ""),
        brokenBody("gzipCut", cut(withLength)),
        brokenBody("gzipChunkedCut", cut(chunked)),
        brokenBody("gzipThatIsNone", answerOf("body", gzip)),
        brokenBody("deflateThatIsNone", answerOf("none of it", "Content-Encoding: deflate\r\n")),
        brokenBody("unknownEncoding", answerOf("body", "Content-Encoding: own\r\n")),
    };
}
