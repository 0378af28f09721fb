#pragma once

#include "http/request/Network.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace http {

class TransferLoop;

// Runs any number of requests at once on one network thread of its own. Connections are kept for the next request to
// the same server, for a few seconds. Its members may be called from any thread.
//
// Receivers and completions are called on the network thread, which they must not destroy the client on.
//
// Every socket counts towards the files the process may open: who asks for hundreds of things at once bounds that.
class Client : public Network
{
public:
    Client();
    // Drops what runs: nobody is called any more. Returns at once, even while a name is being looked up. What receivers
    // and completions hold is released on the network thread, before this returns.
    ~Client() override;

    void start(
        const Request& request, std::shared_ptr<Receiver> receiver, Done done, std::stop_token stop = {}) override;

private:
    struct Started
    {
        Request request;
        std::shared_ptr<Receiver> receiver;
        Done done;
        std::stop_token stop;
    };

    void run(const std::stop_token& stop);
    void runUntilTold(TransferLoop& loop, const std::stop_token& stop);
    bool waitForFirst(const std::stop_token& stop);
    void setLoop(TransferLoop* loop);
    std::vector<Started> takeStarted();

    std::mutex m_mutex;
    std::condition_variable_any m_isStarted;
    // Under the mutex: what the network thread has not seen yet.
    std::vector<Started> m_started;
    // Under the mutex: of the network thread, from when it is first asked for something.
    TransferLoop* m_loop = nullptr;
    // Last, so that it ends before what it uses.
    std::jthread m_thread;
};

} // namespace http
