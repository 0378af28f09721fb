#include "tests/ui/screens/ScriptedNetwork.h"

#include <string_view>
#include <utility>

void ScriptedNetwork::start(
    const http::Request& request, std::shared_ptr<http::Receiver> receiver, Done done, std::stop_token stop)
{
    Exchange exchange{ QString::fromStdString(request.url), std::move(receiver), std::move(done), std::move(stop) };
    m_requestedURLs.append(exchange.url);
    if (m_isHeld)
        m_held.push_back(std::move(exchange));
    else
        answerLater(exchange);
}

void ScriptedNetwork::release()
{
    m_isHeld = false;
    for (const Exchange& exchange : std::exchange(m_held, {}))
        answerLater(exchange);
}

void ScriptedNetwork::answerLater(const Exchange& exchange)
{
    QMetaObject::invokeMethod(
        &m_mainThread, [this, exchange] { exchange.done(answer(exchange)); }, Qt::QueuedConnection);
}

http::Outcome ScriptedNetwork::answer(const Exchange& exchange) const
{
    if (exchange.stop.stop_requested())
        return { .failure = http::Failure::Cancelled };
    const auto file = m_files.find(exchange.url);
    const int status = file == m_files.end() ? 404 : 200;
    if (!exchange.receiver->begin(status))
        return { .failure = http::Failure::Refused, .status = status };
    const QByteArray body = file == m_files.end() ? QByteArray() : *file;
    if (!body.isEmpty() && !exchange.receiver->receive({ body.data(), static_cast<std::size_t>(body.size()) }))
        return { .failure = http::Failure::Refused, .status = status };
    return { .status = status };
}
