#pragma once

#include <QMetaObject>
#include <QPointer>

#include <functional>

// A completion that calls the screen's member function in a later turn of the main loop, never within the call that
// completes; it does nothing once the screen is gone. Made and called on the main thread.
template <typename Screen> std::function<void()> inLaterTurn(Screen* screen, void (Screen::*step)())
{
    return [screen = QPointer<Screen>(screen), step] {
        if (screen)
            QMetaObject::invokeMethod(screen.data(), step, Qt::QueuedConnection);
    };
}
