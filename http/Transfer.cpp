#include "http/Transfer.h"

#include "http/CurlLibrary.h"
#include "http/FailureOfCode.h"
#include "http/SocketClock.h"
#include "http/WebAddress.h"

#include <sys/socket.h>

#include <utility>

namespace http {

namespace {

constexpr int mostRedirects = 20;
// So much of the body of an answer that leads on is read and dropped: its connection may serve again then.
constexpr std::int64_t mostDropped = std::int64_t(16) * 1024;

Transfer& transferOf(void* user)
{
    return *static_cast<Transfer*>(user);
}

} // namespace

Transfer::Transfer(const Request& request, std::shared_ptr<Receiver> receiver, Done done, std::stop_token stop)
    : m_request(request)
    , m_receiver(std::move(receiver))
    , m_done(std::move(done))
    , m_stop(std::move(stop))
    , m_headerLines(headerLines(request))
    , m_handle(makeHandle(request))
    , m_pace(request.limits, Pace::Clock::now())
    , m_head(handle())
{
    setCallbacks();
}

void Transfer::setCallbacks()
{
    curl().easySetOption(handle(), CURLOPT_PRIVATE, this);
    curl().easySetOption(handle(), CURLOPT_HTTPHEADER, m_headerLines.get());
    curl().easySetOption(handle(), CURLOPT_OPENSOCKETDATA, this);
    curl().easySetOption(handle(), CURLOPT_OPENSOCKETFUNCTION, &openSocket);
    curl().easySetOption(handle(), CURLOPT_HEADERDATA, this);
    curl().easySetOption(handle(), CURLOPT_HEADERFUNCTION, &headerArrived);
    curl().easySetOption(handle(), CURLOPT_WRITEDATA, this);
    curl().easySetOption(handle(), CURLOPT_WRITEFUNCTION, &bodyArrived);
    curl().easySetOption(handle(), CURLOPT_PREREQDATA, this);
    curl().easySetOption(handle(), CURLOPT_PREREQFUNCTION, &requestGoesOut);
    curl().easySetOption(handle(), CURLOPT_XFERINFODATA, this);
    curl().easySetOption(handle(), CURLOPT_XFERINFOFUNCTION, &progressed);
    curl().easySetOption(handle(), CURLOPT_NOPROGRESS, 0L);
}

std::optional<Outcome> Transfer::begin(const std::function<void()>& wake)
{
    m_stopped.emplace(m_stop, wake);
    std::optional<std::string> address = webAddress(m_request.url);
    if (!address)
        return Outcome{ .failure = Failure::BadAddress };
    aim(std::move(*address));
    return std::nullopt;
}

void Transfer::aim(std::string address)
{
    m_address = std::move(address);
    m_head = AnswerHead(handle());
    m_isSent = false;
    m_received = 0;
    m_delivered = 0;
    m_pace.heard(Pace::Clock::now());
    curl().easySetOption(handle(), CURLOPT_URL, m_address.c_str());
    chooseConnection(handle(), m_address);
}

Pace::Clock::time_point Transfer::due() const
{
    return m_pace.due(m_received);
}

Failure Transfer::verdict(Pace::Clock::time_point now)
{
    if (m_stop.stop_requested())
        return Failure::Cancelled;
    const Failure failure = m_pace.verdict(now, m_received);
    if (failure != Failure::Silent || !m_isSent)
        return failure;
    if (const auto heard = lastByteOf(handle(), m_sockets, now))
        m_pace.heard(*heard);
    return m_pace.verdict(now, m_received);
}

std::optional<Outcome> Transfer::finish(CURLcode code)
{
    if (m_failure == Failure::None && m_head.location())
        return follow(*m_head.location());
    const Failure failure = m_failure != Failure::None
        ? m_failure
        : failureOf(code, m_head.hasEnded() ? HeadState::Ended : HeadState::Missing);
    return Outcome{ .failure = failure, .status = m_head.status() };
}

std::optional<Outcome> Transfer::follow(const std::string& location)
{
    std::optional<std::string> next = redirectTarget(m_address, location);
    if (!next || m_redirects++ == mostRedirects)
        return Outcome{ .failure = Failure::BadRedirect, .status = m_head.status() };
    aim(std::move(*next));
    return std::nullopt;
}

void Transfer::end(const Outcome& outcome)
{
    m_stopped.reset();
    m_receiver.reset();
    if (m_done)
        std::exchange(m_done, nullptr)(outcome);
}

// Children must not inherit connections. Once the request is sent there is no use for another one, see below.
curl_socket_t Transfer::openSocket(void* transfer, curlsocktype, curl_sockaddr* address)
{
    Transfer& self = transferOf(transfer);
    if (self.m_isSent && !self.giveUp(Failure::NoAnswer))
        return CURL_SOCKET_BAD;
    self.m_sockets.push_back(socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol));
    return self.m_sockets.back();
}

std::size_t Transfer::headerArrived(char* data, std::size_t size, std::size_t count, void* transfer)
{
    return transferOf(transfer).takeHeader({ data, size * count }) ? size * count : 0;
}

std::size_t Transfer::bodyArrived(char* data, std::size_t size, std::size_t count, void* transfer)
{
    // What is no count of bytes ends the exchange; 0 would not do so for an empty piece.
    constexpr auto ending = static_cast<std::size_t>(-1);
    return transferOf(transfer).takeBody({ data, size * count }) ? size * count : ending;
}

// The library by itself asks once more when a kept connection turns out to be dead, although the server may have seen
// the request. That second time is refused here.
int Transfer::requestGoesOut(void* transfer, char*, char*, int, int)
{
    Transfer& self = transferOf(transfer);
    self.m_pace.heard(Pace::Clock::now());
    return std::exchange(self.m_isSent, true) ? CURL_PREREQFUNC_ABORT : CURL_PREREQFUNC_OK;
}

int Transfer::progressed(void* transfer, curl_off_t, curl_off_t received, curl_off_t, curl_off_t)
{
    return transferOf(transfer).countReceived(received) ? 0 : 1;
}

bool Transfer::takeHeader(std::string_view line)
{
    m_pace.heard(Pace::Clock::now());
    switch (m_head.take(line)) {
    case AnswerHead::Verdict::Open:
        return true;
    case AnswerHead::Verdict::Ended:
        return acceptHead();
    case AnswerHead::Verdict::TooLong:
        return giveUp(Failure::TooLarge);
    case AnswerHead::Verdict::Contradictory:
        return giveUp(Failure::NoAnswer);
    }
    return false;
}

bool Transfer::acceptHead()
{
    if (m_head.location())
        return true;
    if (!m_receiver->begin(m_head.status()))
        return giveUp(Failure::Refused);
    curl_off_t told = 0;
    curl().easyGetInfo(handle(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &told);
    return told <= m_request.limits.largestBody || giveUp(Failure::TooLarge);
}

bool Transfer::takeBody(std::string_view piece)
{
    m_pace.heard(Pace::Clock::now());
    m_delivered += static_cast<std::int64_t>(piece.size());
    if (m_head.location())
        return m_delivered <= mostDropped;
    if (m_delivered > m_request.limits.largestBody)
        return giveUp(Failure::TooLarge);
    return m_receiver->receive(piece) || giveUp(Failure::Refused);
}

// Of a body that is encoded, much may come before there is anything to deliver.
bool Transfer::countReceived(std::int64_t received)
{
    if (received == m_received)
        return true;
    m_received = received;
    m_pace.heard(Pace::Clock::now());
    return m_received <= m_request.limits.largestBody || giveUp(Failure::TooLarge);
}

// For the ends of callbacks: false tells the library to end the exchange.
bool Transfer::giveUp(Failure failure)
{
    m_failure = failure;
    return false;
}

} // namespace http
