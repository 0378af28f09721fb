#pragma once

#include "ui/kit/touch/WindowWatcher.h"

namespace kit {

// While it is active, a press outside one item reaches nothing in the window, from its beginning to its release: it is
// only told of. Touches and mouse alike; wheels and keys go their way. How a control is pressed, and what two quick
// presses do, is decided by PressArea.qml.
class PressGuard : public WindowWatcher
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool active MEMBER m_active NOTIFY activeChanged)
    // Where presses go through.
    Q_PROPERTY(QQuickItem* spared MEMBER m_spared NOTIFY sparedChanged)

public:
    using WindowWatcher::WindowWatcher;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void activeChanged();
    void sparedChanged();
    void pressedElsewhere();

private:
    bool beginsElsewhere(const QEvent& event) const;

    QPointer<QQuickItem> m_spared;
    bool m_active = false;
    bool m_swallows = false;
};

} // namespace kit
