#pragma once

#include "http/request/Outcome.h"
#include "http/request/Receiver.h"
#include "http/request/Request.h"

#include <stop_token>

namespace http {

// Sends the request and runs the whole transfer on the calling thread, on which the receiver is called, too. Returns
// when it has ended; when told to stop by another thread, without waiting for the server.
Outcome fetch(const Request& request, Receiver& receiver, const std::stop_token& stop = {});

} // namespace http
