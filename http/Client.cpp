#include "http/Client.h"

#include "http/Transfer.h"
#include "http/TransferLoop.h"

#include <utility>

namespace http {

Client::Client()
    : m_loop(std::make_unique<TransferLoop>())
    , m_thread([this](const std::stop_token& stop) { run(stop); })
{
}

Client::~Client() = default;

void Client::start(const Request& request, std::shared_ptr<Receiver> receiver, Done done, std::stop_token stop)
{
    auto transfer = std::make_unique<Transfer>(request, std::move(receiver), std::move(done), std::move(stop));
    {
        const std::lock_guard lock(m_mutex);
        m_started.push_back(std::move(transfer));
    }
    m_loop->wake();
}

void Client::run(const std::stop_token& stop)
{
    runUntilTold(stop);
    takeStarted();
    m_loop.reset();
}

void Client::runUntilTold(const std::stop_token& stop)
{
    const std::stop_callback stopped(stop, [this] { m_loop->wake(); });
    while (!stop.stop_requested()) {
        for (auto& transfer : takeStarted())
            m_loop->add(std::move(transfer));
        m_loop->turn();
    }
}

std::vector<std::unique_ptr<Transfer>> Client::takeStarted()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_started, {});
}

} // namespace http
