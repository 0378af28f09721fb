#pragma once

#include "ui/kit/touch/WindowWatcher.h"

namespace kit {

// Tells whether the window is worked by a mouse or by fingers, as it changes. Stands anywhere in the window.
class PointerWatch : public WindowWatcher
{
    Q_OBJECT
    QML_ELEMENT

public:
    using WindowWatcher::WindowWatcher;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    // Of a mouse itself; Qt makes such moves of touches, too.
    void mouseMoved();
    void touched();
};

} // namespace kit
