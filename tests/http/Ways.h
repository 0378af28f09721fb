#pragma once

#include "http/Client.h"
#include "http/request/Outcome.h"
#include "http/request/Receiver.h"
#include "http/request/Request.h"

#include <array>
#include <ostream>
#include <stop_token>
#include <string>
#include <string_view>

// The ways in which this program asks for things, and what each of them makes of an answer.
enum class Way {
    // A Client, with a user agent, into memory; only 200 is wanted.
    Index,
    // A Client, without a user agent, into memory; every status is wanted.
    Icon,
    // fetch(), with a user agent, into a file; only 200 is wanted.
    Archive,
};
inline constexpr std::array everyWay = { Way::Index, Way::Icon, Way::Archive };

inline constexpr std::string_view testUserAgent = "Some Agent/1.0";

// Keeps what it is given.
class GatheringReceiver : public http::Receiver
{
public:
    enum class Wanted { Everything, OnlyOK };

    explicit GatheringReceiver(Wanted wanted = Wanted::Everything)
        : m_wanted(wanted)
    {
    }

    bool begin(int status) override;
    bool receive(std::string_view piece) override;

    // How often an answer began; -1 when a piece came before.
    int beginnings = 0;
    std::string body;
    std::size_t longestPiece = 0;

private:
    Wanted m_wanted;
};

struct Answer
{
    http::Outcome outcome;
    std::string body;
};

http::Request requestOf(Way way, const std::string& url);

// Asks and waits for the outcome.
Answer ask(Way way, const http::Request& request, const std::stop_token& stop = {});
// The same by a client, which may have connections from before.
Answer ask(http::Client& client, const http::Request& request, const std::stop_token& stop = {});

namespace http {
std::ostream& operator<<(std::ostream& out, Failure failure);
}
std::ostream& operator<<(std::ostream& out, Way way);
