#include "ui/classic/IconQueue.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

IconQueue::IconQueue(IconTransport& transport, const Limits& limits)
    : m_transport(transport)
    , m_limits(limits)
{
}

void IconQueue::StopAndDeleteLater::operator()(QTimer* timer) const
{
    timer->stop();
    timer->deleteLater();
}

void IconQueue::add(Request request)
{
    dropWaiting(
        [&](const Request& waiting) { return waiting.requester == request.requester && waiting.url == request.url; });
    m_waiting.push_back(std::move(request));
    startNext();
}

void IconQueue::startNext()
{
    dropWaiting([](const Request& request) { return !request.isWanted(); });
    if (m_running.size() + m_waiting.size() > m_limits.mostAtOnce)
        dropUnwantedRunning();
    while (!m_waiting.empty() && m_running.size() < m_limits.mostAtOnce) {
        Request next = std::move(m_waiting.front());
        m_waiting.pop_front();
        start(std::move(next));
    }
}

void IconQueue::dropWaiting(const std::function<bool(const Request&)>& isDropped)
{
    const auto first = std::stable_partition(m_waiting.begin(), m_waiting.end(), std::not_fn(isDropped));
    const std::deque<Request> dropped(std::make_move_iterator(first), std::make_move_iterator(m_waiting.end()));
    m_waiting.erase(first, m_waiting.end());
    for (const Request& request : dropped)
        request.completion({});
}

void IconQueue::dropUnwantedRunning()
{
    for (Place place = m_running.begin(); place != m_running.end();)
        place = place->request.isWanted() ? std::next(place) : end(place, {});
}

void IconQueue::start(Request request)
{
    const Place place = m_running.emplace(m_running.end());
    place->request = std::move(request);
    place->deadline.reset(new QTimer);
    place->deadline->setSingleShot(true);
    const auto finish = [this, place](const QByteArray& body) {
        end(place, body);
        startNext();
    };
    connect(place->deadline.get(), &QTimer::timeout, this, [finish] { finish({}); });
    place->deadline->start(m_limits.deadline);
    place->transfer = m_transport.start(place->request.url, finish);
}

IconQueue::Place IconQueue::end(Place place, const QByteArray& body)
{
    const auto completion = std::move(place->request.completion);
    const Place next = m_running.erase(place);
    completion(body);
    return next;
}
