#pragma once

#include "ScriptedServer.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The few frames of HTTP/2 that a server needs to answer, and to answer wrongly.
namespace http2 {

enum class Kind : std::uint8_t { Data = 0, Headers = 1, Reset = 3, Settings = 4, Ping = 6, GoAway = 7 };
enum class End { Open, Stream };

struct Frame
{
    int kind = -1;
    int flags = 0;
    std::uint32_t stream = 0;
    std::string payload;
};

struct Header
{
    std::string name;
    std::string value;
};

std::string headers(std::uint32_t stream, const std::vector<Header>& headers, End end = End::Open);
std::string data(std::uint32_t stream, std::string_view bytes, End end = End::Open);
std::string reset(std::uint32_t stream, std::uint32_t error);
std::string goAway(std::uint32_t lastStream, std::uint32_t error);
std::string ping();

// The errors that a server may name.
inline constexpr std::uint32_t noError = 0;
inline constexpr std::uint32_t internalError = 2;
inline constexpr std::uint32_t refusedStream = 7;

// Greets, and answers each request by what the script makes of its stream's number; until the client leaves or the
// script says that this was all.
enum class After { GoOn, Close };
using Answering = std::function<After(ServerConnection&, std::uint32_t stream)>;
ScriptedServer::Script serving(Answering answering);

} // namespace http2
