#pragma once

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <memory>

// A download under way; destroying it cancels it.
class IconTransfer
{
public:
    IconTransfer() = default;
    IconTransfer(const IconTransfer&) = delete;
    IconTransfer& operator=(const IconTransfer&) = delete;
    virtual ~IconTransfer() = default;
};

// What icons are downloaded by. Main thread.
class IconTransport
{
public:
    // Called once with the body; an empty one stands for every failure. A status that tells of an error is none: what
    // counts is the body.
    using Completion = std::function<void(const QByteArray& body)>;

    IconTransport() = default;
    IconTransport(const IconTransport&) = delete;
    IconTransport& operator=(const IconTransport&) = delete;
    virtual ~IconTransport() = default;

    // The completion comes in a later turn of the main loop, and not once the transfer is destroyed, which the
    // completion itself may do.
    virtual std::unique_ptr<IconTransfer> start(const QUrl& url, Completion completion) = 0;
};
