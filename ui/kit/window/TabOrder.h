#pragma once

#include "ui/kit/touch/WindowWatcher.h"

#include <vector>

namespace kit {

// Tab goes round the window's controls in the order in which they are seen: from top to bottom and from left to right,
// and through those within another one right after it. Stands anywhere in the window.
class TabOrder : public WindowWatcher
{
    Q_OBJECT
    QML_ELEMENT

public:
    using WindowWatcher::WindowWatcher;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    // The keyboard is about to go to another control.
    void moving();

private:
    enum class Direction { Forward, Backward };

    void move(Direction direction);
    static std::vector<QQuickItem*> stopsWithin(const QQuickItem& item);
    static std::vector<QQuickItem*> nearestStopsWithin(const QQuickItem& item);
};

} // namespace kit
