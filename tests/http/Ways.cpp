#include "Ways.h"

#include "http/Fetch.h"

#include <cstdio>
#include <future>
#include <memory>

namespace {

constexpr int statusOK = 200;

// Writes to a file without a name, as a download does; what arrived is read back at the end.
class FileReceiver : public http::Receiver
{
public:
    bool begin(int status) override { return status == statusOK; }
    bool receive(std::string_view piece) override
    {
        return std::fwrite(piece.data(), 1, piece.size(), m_file.get()) == piece.size();
    }

    std::string written()
    {
        std::string text(static_cast<std::size_t>(std::ftell(m_file.get())), '\0');
        std::rewind(m_file.get());
        text.resize(std::fread(text.data(), 1, text.size(), m_file.get()));
        return text;
    }

private:
    std::unique_ptr<std::FILE, decltype(&std::fclose)> m_file{ std::tmpfile(), std::fclose };
};

Answer askClient(
    http::Client& client, const http::Request& request, GatheringReceiver::Wanted wanted, const std::stop_token& stop)
{
    const auto receiver = std::make_shared<GatheringReceiver>(wanted);
    std::promise<http::Outcome> outcome;
    client.start(
        request, receiver, [&](const http::Outcome& ended) { outcome.set_value(ended); }, stop);
    const http::Outcome ended = outcome.get_future().get();
    return { .outcome = ended, .body = receiver->body };
}

Answer fetchToFile(const http::Request& request, const std::stop_token& stop)
{
    FileReceiver receiver;
    const http::Outcome outcome = http::fetch(request, receiver, stop);
    return { .outcome = outcome, .body = receiver.written() };
}

} // namespace

bool GatheringReceiver::begin(int status)
{
    ++beginnings;
    return m_wanted == Wanted::Everything || status == statusOK;
}

bool GatheringReceiver::receive(std::string_view piece)
{
    if (beginnings == 0)
        beginnings = -1;
    body.append(piece);
    longestPiece = std::max(longestPiece, piece.size());
    return true;
}

http::Request requestOf(Way way, const std::string& url)
{
    http::Request request;
    request.url = url;
    if (way != Way::Icon)
        request.userAgent = testUserAgent;
    return request;
}

Answer ask(http::Client& client, const http::Request& request, const std::stop_token& stop)
{
    return askClient(client, request, GatheringReceiver::Wanted::Everything, stop);
}

Answer ask(Way way, const http::Request& request, const std::stop_token& stop)
{
    if (way == Way::Archive)
        return fetchToFile(request, stop);
    http::Client client;
    const bool wantsAll = way == Way::Icon;
    return askClient(
        client, request, wantsAll ? GatheringReceiver::Wanted::Everything : GatheringReceiver::Wanted::OnlyOK, stop);
}

namespace http {

std::ostream& operator<<(std::ostream& out, Failure failure)
{
    switch (failure) {
    case Failure::None:
        return out << "None";
    case Failure::Cancelled:
        return out << "Cancelled";
    case Failure::Refused:
        return out << "Refused";
    case Failure::BadAddress:
        return out << "BadAddress";
    case Failure::BadRedirect:
        return out << "BadRedirect";
    case Failure::Unreachable:
        return out << "Unreachable";
    case Failure::Untrusted:
        return out << "Untrusted";
    case Failure::NoAnswer:
        return out << "NoAnswer";
    case Failure::BrokenBody:
        return out << "BrokenBody";
    case Failure::TooLarge:
        return out << "TooLarge";
    case Failure::Silent:
        return out << "Silent";
    case Failure::TooSlow:
        return out << "TooSlow";
    }
    return out;
}

} // namespace http

std::ostream& operator<<(std::ostream& out, Way way)
{
    switch (way) {
    case Way::Index:
        return out << "Index";
    case Way::Icon:
        return out << "Icon";
    case Way::Archive:
        return out << "Archive";
    }
    return out;
}
