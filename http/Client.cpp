#include "http/Client.h"

#include "http/Transfer.h"
#include "http/TransferLoop.h"

#include <utility>

namespace http {

Client::Client()
    : m_thread([this](const std::stop_token& stop) { run(stop); })
{
}

Client::~Client() = default;

void Client::start(const Request& request, std::shared_ptr<Receiver> receiver, Done done, std::stop_token stop)
{
    const std::lock_guard lock(m_mutex);
    m_started.push_back({ request, std::move(receiver), std::move(done), std::move(stop) });
    if (m_loop)
        m_loop->wake();
    else
        m_isStarted.notify_one();
}

void Client::run(const std::stop_token& stop)
{
    if (waitForFirst(stop)) {
        TransferLoop loop;
        setLoop(&loop);
        runUntilTold(loop, stop);
        setLoop(nullptr);
    }
    takeStarted();
}

// False when it is told to stop before.
bool Client::waitForFirst(const std::stop_token& stop)
{
    std::unique_lock lock(m_mutex);
    return m_isStarted.wait(lock, stop, [this] { return !m_started.empty(); });
}

void Client::runUntilTold(TransferLoop& loop, const std::stop_token& stop)
{
    const std::stop_callback stopped(stop, [&loop] { loop.wake(); });
    while (!stop.stop_requested()) {
        for (Started& one : takeStarted())
            loop.add(std::make_unique<Transfer>(
                one.request, std::move(one.receiver), std::move(one.done), std::move(one.stop)));
        loop.turn();
    }
}

void Client::setLoop(TransferLoop* loop)
{
    const std::lock_guard lock(m_mutex);
    m_loop = loop;
}

std::vector<Client::Started> Client::takeStarted()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_started, {});
}

} // namespace http
