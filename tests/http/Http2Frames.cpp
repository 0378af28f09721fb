#include "Http2Frames.h"

#include <utility>

namespace http2 {

namespace {

constexpr int endOfStream = 1;
constexpr int acknowledged = 1;
constexpr int endOfHeaders = 4;
constexpr std::size_t frameHeadLength = 9;
constexpr std::string_view clientGreeting = "PRI * HTTP/2.0\r\n\r\nSM\r\n\r\n";

std::string bigEndian(std::uint32_t number, int bytes)
{
    std::string text;
    for (int shift = (bytes - 1) * 8; shift >= 0; shift -= 8)
        text += static_cast<char>(number >> shift);
    return text;
}

std::uint32_t numberOf(std::string_view bytes)
{
    std::uint32_t number = 0;
    for (const char byte : bytes)
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

std::string frame(Kind kind, int flags, std::uint32_t stream, std::string_view payload)
{
    std::string bytes = bigEndian(static_cast<std::uint32_t>(payload.size()), 3);
    bytes += static_cast<char>(kind);
    bytes += static_cast<char>(flags);
    return bytes + bigEndian(stream, 4) + std::string(payload);
}

// Plain letters and no table: the simplest form there is, for texts shorter than 127 bytes.
std::string literal(const std::string& text)
{
    return static_cast<char>(text.size()) + text;
}

Frame readFrame(ServerConnection& connection)
{
    const std::string head = connection.read(frameHeadLength);
    if (head.size() < frameHeadLength)
        return {};
    const std::string_view view = head;
    return { .kind = view[3],
        .flags = view[4],
        .stream = numberOf(view.substr(5)),
        .payload = connection.read(numberOf(view.substr(0, 3))) };
}

// The client goes on sending frames about its windows. To close while one of them is unread would reset the connection,
// and what was sent might be lost with it.
void endSending(ServerConnection& connection)
{
    connection.endTls();
    connection.waitForEnd();
}

} // namespace

std::string headers(std::uint32_t stream, const std::vector<Header>& headers, End end)
{
    std::string block;
    for (const Header& header : headers)
        block += std::string(1, '\0') + literal(header.name) + literal(header.value);
    return frame(Kind::Headers, endOfHeaders | (end == End::Stream ? endOfStream : 0), stream, block);
}

std::string data(std::uint32_t stream, std::string_view bytes, End end)
{
    return frame(Kind::Data, end == End::Stream ? endOfStream : 0, stream, bytes);
}

std::string reset(std::uint32_t stream, std::uint32_t error)
{
    return frame(Kind::Reset, 0, stream, bigEndian(error, 4));
}

std::string goAway(std::uint32_t lastStream, std::uint32_t error)
{
    return frame(Kind::GoAway, 0, 0, bigEndian(lastStream, 4) + bigEndian(error, 4));
}

std::string ping()
{
    return frame(Kind::Ping, 0, 0, std::string(8, 'p'));
}

ScriptedServer::Script serving(Answering answering)
{
    return [answering = std::move(answering)](ServerConnection& connection) {
        if (connection.read(clientGreeting.size()) != clientGreeting)
            return;
        connection.send(frame(Kind::Settings, 0, 0, {}));
        for (Frame read = readFrame(connection); read.kind >= 0; read = readFrame(connection)) {
            if (read.kind == static_cast<int>(Kind::Settings) && (read.flags & acknowledged) == 0)
                connection.send(frame(Kind::Settings, acknowledged, 0, {}));
            if (read.kind != static_cast<int>(Kind::Headers))
                continue;
            connection.remember(read.payload);
            if (answering(connection, read.stream) == After::Close)
                return endSending(connection);
        }
    };
}

} // namespace http2
