#pragma once

#include <QString>

// Asks the desktop whether a URL has a handler, and opens it there. URLs are passed on verbatim, never normalised.
// Called on the thread that hands over, which is the main thread in every step of the program.
class URLOpener
{
public:
    URLOpener() = default;
    URLOpener(const URLOpener&) = delete;
    URLOpener& operator=(const URLOpener&) = delete;
    virtual ~URLOpener() = default;

    virtual bool canOpenURL(const QString& url) = 0;
    // The outcome is not told: whoever opens a URL does not wait for it.
    virtual void openURL(const QString& url) = 0;
};
