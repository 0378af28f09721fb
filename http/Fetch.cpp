#include "http/Fetch.h"

#include "http/Transfer.h"
#include "http/TransferLoop.h"

#include <memory>

namespace http {

Outcome fetch(const Request& request, Receiver& receiver, const std::stop_token& stop)
{
    // Lent, not owned.
    const std::shared_ptr<Receiver> lent(std::shared_ptr<void>(), &receiver);
    Outcome outcome;
    const auto keep = [&outcome](const Outcome& ended) { outcome = ended; };
    TransferLoop loop;
    loop.add(std::make_unique<Transfer>(request, lent, keep, stop));
    while (!loop.isEmpty())
        loop.turn();
    return outcome;
}

} // namespace http
