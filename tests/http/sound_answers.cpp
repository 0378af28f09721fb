// Answers that are whole, and how lax a client has to be with them.
#include "Encodings.h"
#include "Fault.h"

using http::Failure;

namespace {

Fault sound(const std::string& name, const std::string& bytes, const std::string& body = "body")
{
    return { .name = name, .script = ScriptedServer::answer(bytes), .body = body };
}

Fault status(int code, const std::string& reason, const std::string& body)
{
    const std::string told = body.empty() ? "" : "Content-Length: " + std::to_string(body.size()) + "\r\n";
    const std::string head = "HTTP/1.1 " + std::to_string(code) + " " + reason + "\r\n" + told + "\r\n";
    return { .name = "status" + std::to_string(code),
        .script = ScriptedServer::answer(head + body),
        .status = code,
        .body = body };
}

ScriptedServer::Script later(const std::string& bytes)
{
    return [bytes](ServerConnection& connection) {
        connection.readHead();
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        connection.send(bytes);
    };
}

} // namespace

std::vector<Fault> soundAnswers()
{
    return {
        sound("length", answerOf("body")),
        sound("chunked", chunkedAnswerOf("body", 3)),
        sound("chunksOfOneByte", chunkedAnswerOf("body", 1)),
        sound("untilTheConnectionEnds", "HTTP/1.1 200 OK\r\n\r\nbody"),
        sound("http10", "HTTP/1.0 200 OK\r\n\r\nbody"),
        sound("http10WithLength", "HTTP/1.0 200 OK\r\nContent-Length: 4\r\n\r\nbody"),
        sound("emptyWithLength", answerOf(""), ""),
        sound("emptyChunked", chunkedAnswerOf("", 1), ""),
        sound("emptyUntilTheConnectionEnds", "HTTP/1.1 200 OK\r\n\r\n", ""),
        sound("continueFirst", "HTTP/1.1 100 Continue\r\n\r\n" + answerOf("body")),
        sound("earlyHintsFirst", "HTTP/1.1 103 Early Hints\r\nLink: </a>; rel=preload\r\n\r\n" + answerOf("body")),
        sound("severalInterimAnswersFirst",
            "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 102 Processing\r\n\r\nHTTP/1.1 103 Early Hints\r\n\r\n"
                + answerOf("body")),
        sound("namesInLowerCase", "HTTP/1.1 200 OK\r\ncontent-length: 4\r\n\r\nbody"),
        sound("linesWithoutCarriageReturn", "HTTP/1.1 200 OK\nContent-Length: 4\n\nbody"),
        sound("noReason", "HTTP/1.1 200\r\nContent-Length: 4\r\n\r\nbody"),
        sound("foldedHeader", "HTTP/1.1 200 OK\r\nX-Long: one\r\n two\r\nContent-Length: 4\r\n\r\nbody"),
        sound("sameLengthTwice", answerOf("body", "Content-Length: 4\r\n")),
        sound("moreThanItsLength", answerOf("body") + "and more"),
        sound("lengthBesideChunks", chunkedAnswerOf("body", 4, "Content-Length: 2\r\n")),
        sound("trailers", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\nbody\r\n0\r\nX-Sum: 1\r\n\r\n"),
        sound("chunkExtensions",
            "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4;name=value\r\nbody\r\n0\r\n\r\n"),
        sound("cookies", answerOf("body", "Set-Cookie: a=b\r\n")),
        { .name = "answeredLater", .script = later(answerOf("body")), .body = "body" },
    };
}

std::vector<Fault> statuses()
{
    return {
        status(201, "Created", "made"),
        status(204, "No Content", ""),
        status(206, "Partial Content", "part"),
        status(300, "Multiple Choices", "many"),
        status(302, "Found", "but where"),
        status(304, "Not Modified", ""),
        status(401, "Unauthorized", "who"),
        status(404, "Not Found", "none"),
        status(500, "Internal Server Error", "error"),
        status(503, "Service Unavailable", "later"),
        status(999, "Beyond", "odd"),
    };
}
