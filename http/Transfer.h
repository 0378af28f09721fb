#pragma once

#include "http/AnswerHead.h"
#include "http/Pace.h"
#include "http/TransferOptions.h"
#include "http/request/Outcome.h"
#include "http/request/Receiver.h"
#include "http/request/Request.h"

#include <curl/curl.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace http {

// One request with all the answers that lead it on, until its outcome is known. Made on any thread, and then used on
// the thread of one TransferLoop alone.
class Transfer
{
public:
    using Done = std::function<void(const Outcome&)>;

    Transfer(const Request& request, std::shared_ptr<Receiver> receiver, Done done, std::stop_token stop);
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    // Makes the handle ready to ask; none when it is, else what came of it without asking. Wake is called, on any
    // thread, when the transfer is told to stop.
    std::optional<Outcome> begin(const std::function<void()>& wake);
    CURL* handle() const { return m_handle.get(); }

    // When to ask for the verdict at the latest.
    Pace::Clock::time_point due() const;
    // None while there is no reason to end the transfer.
    Failure verdict(Pace::Clock::time_point now);

    // What an exchange that the library has ended comes to; none when the handle is ready to ask elsewhere.
    std::optional<Outcome> finish(CURLcode code);
    // Calls the completion, once and as the last thing.
    void end(const Outcome& outcome);

    int status() const { return m_head.status(); }

private:
    using StopCallback = std::stop_callback<std::function<void()>>;

    static curl_socket_t openSocket(void* transfer, curlsocktype purpose, curl_sockaddr* address);
    static std::size_t headerArrived(char* data, std::size_t size, std::size_t count, void* transfer);
    static std::size_t bodyArrived(char* data, std::size_t size, std::size_t count, void* transfer);
    static int requestGoesOut(void* transfer, char* theirAddress, char* ourAddress, int theirPort, int ourPort);
    static int progressed(void* transfer, curl_off_t total, curl_off_t received, curl_off_t, curl_off_t);

    void setCallbacks();
    void aim(std::string address);
    std::optional<Outcome> follow(const std::string& location);
    bool takeHeader(std::string_view line);
    bool acceptHead();
    bool takeBody(std::string_view piece);
    bool countReceived(std::int64_t received);
    bool giveUp(Failure failure);

    Request m_request;
    std::shared_ptr<Receiver> m_receiver;
    Done m_done;
    std::stop_token m_stop;
    HeaderLines m_headerLines;
    EasyHandle m_handle;
    Pace m_pace;

    // Of the present one of the addresses the transfer is led to.
    std::string m_address;
    AnswerHead m_head;
    bool m_isSent = false;
    // Opened for this transfer, in their order; the library closes them, sooner or later.
    std::vector<curl_socket_t> m_sockets;
    // Bytes of the body, as they came and as they were delivered.
    std::int64_t m_received = 0;
    std::int64_t m_delivered = 0;

    int m_redirects = 0;
    // Why this side ended the exchange, when it did.
    Failure m_failure = Failure::None;
    // Last, so that nobody is woken for what is half gone.
    std::optional<StopCallback> m_stopped;
};

} // namespace http
