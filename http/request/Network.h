#pragma once

#include "http/request/Outcome.h"
#include "http/request/Receiver.h"
#include "http/request/Request.h"

#include <functional>
#include <memory>
#include <stop_token>

namespace http {

// Whoever answers requests in the background: the Client does, over the network.
class Network
{
public:
    // Called once when the request has ended in whatever way, after the receiver's last call and on the same thread;
    // never inside start(). It must not throw or take long, and may start further requests.
    using Done = std::function<void(const Outcome&)>;

    Network() = default;
    virtual ~Network() = default;
    Network(const Network&) = delete;
    Network& operator=(const Network&) = delete;

    // The request is sent at once; it waits for no other. When told to stop, it ends as Failure::Cancelled without
    // waiting for the server.
    virtual void start(const Request& request, std::shared_ptr<Receiver> receiver, Done done, std::stop_token stop) = 0;
};

} // namespace http
