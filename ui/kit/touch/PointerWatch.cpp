#include "ui/kit/touch/PointerWatch.h"

#include <QMouseEvent>

namespace kit {

bool PointerWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::TouchBegin)
        Q_EMIT touched();
    else if (event->type() == QEvent::MouseMove
        && static_cast<const QMouseEvent*>(event)->source() == Qt::MouseEventNotSynthesized)
        Q_EMIT mouseMoved();
    return WindowWatcher::eventFilter(watched, event);
}

} // namespace kit
