#include "ui/kit/touch/PressGuard.h"

#include <QPointerEvent>
#include <QQuickWindow>

namespace kit {

namespace {

bool isPress(const QEvent& event)
{
    return event.type() == QEvent::TouchBegin || event.type() == QEvent::MouseButtonPress
        || event.type() == QEvent::MouseButtonDblClick;
}

bool isMiddle(const QEvent& event)
{
    return event.type() == QEvent::TouchUpdate || event.type() == QEvent::MouseMove;
}

bool isEnd(const QEvent& event)
{
    return event.type() == QEvent::TouchEnd || event.type() == QEvent::TouchCancel
        || event.type() == QEvent::MouseButtonRelease;
}

} // namespace

bool PressGuard::beginsElsewhere(const QEvent& event) const
{
    const QPointF place = static_cast<const QPointerEvent&>(event).points().first().scenePosition();
    return !m_spared || !m_spared->contains(m_spared->mapFromScene(place));
}

bool PressGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (isPress(*event)) {
        m_swallows = m_active && beginsElsewhere(*event);
        // Of a touch that nobody accepts, a press of the mouse is made.
        event->setAccepted(event->isAccepted() || m_swallows);
        if (m_swallows)
            Q_EMIT pressedElsewhere();
        return m_swallows;
    }
    const bool swallowed = m_swallows && (isMiddle(*event) || isEnd(*event));
    if (isEnd(*event))
        m_swallows = false;
    return swallowed || WindowWatcher::eventFilter(watched, event);
}

} // namespace kit
