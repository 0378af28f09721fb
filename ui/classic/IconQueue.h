#pragma once

#include "ui/classic/IconTransport.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <deque>
#include <list>

// The icon downloads that are under way and those that wait for their turn, first come, first served. Main thread.
// Scrolling asks for more icons than anybody will look at: a download that nobody wants any more is dropped when it
// would wait, and makes room when another waits.
class IconQueue : public QObject
{
    Q_OBJECT

public:
    struct Limits
    {
        // Downloads under way.
        std::size_t mostAtOnce = 16;
        // From the start of a download to its end; then it has failed.
        std::chrono::milliseconds deadline = std::chrono::seconds(60);
    };

    struct Request
    {
        QUrl url;
        // Who asked. A request that waits is dropped when the same one asks for the same again.
        const void* requester = nullptr;
        // Whether the view that asked still wants it.
        std::function<bool()> isWanted;
        // Called once, with an empty body also when the download is dropped; it may add no request itself.
        IconTransport::Completion completion;
    };

    // The transport must outlive the queue.
    IconQueue(IconTransport& transport, const Limits& limits);

    void add(Request request);

private:
    // Later, for it may be this timer that has just told.
    struct StopAndDeleteLater
    {
        void operator()(QTimer* timer) const;
    };

    struct Running
    {
        Request request;
        std::unique_ptr<IconTransfer> transfer;
        std::unique_ptr<QTimer, StopAndDeleteLater> deadline;
    };
    using Place = std::list<Running>::iterator;

    void dropWaiting(const std::function<bool(const Request&)>& isDropped);
    void dropUnwantedRunning();
    void startNext();
    void start(Request request);
    // Returns the place after it.
    Place end(Place place, const QByteArray& body);

    IconTransport& m_transport;
    Limits m_limits;
    std::deque<Request> m_waiting;
    std::list<Running> m_running;
};
