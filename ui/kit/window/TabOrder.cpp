#include "ui/kit/window/TabOrder.h"

#include <QKeyEvent>
#include <QQuickWindow>

#include <algorithm>

namespace kit {

namespace {

// Rounded, so that neighbours of a row stand at one height.
std::pair<int, int> readingPlace(const QQuickItem* item)
{
    const QPoint place = item->mapToScene({ 0, 0 }).toPoint();
    return { place.y(), place.x() };
}

} // namespace

bool TabOrder::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return WindowWatcher::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool isBack = key.key() == Qt::Key_Backtab || (key.modifiers() & Qt::ShiftModifier);
    const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    if (!isTab || (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        return WindowWatcher::eventFilter(watched, event);
    move(isBack ? Direction::Backward : Direction::Forward);
    return true;
}

void TabOrder::move(Direction direction)
{
    const std::vector<QQuickItem*> stops = stopsWithin(*window()->contentItem());
    if (stops.empty())
        return;
    // Within a control something of its own may have the keyboard: the last that holds it counts.
    const auto current
        = std::find_if(stops.rbegin(), stops.rend(), [](const QQuickItem* stop) { return stop->hasActiveFocus(); });
    const auto count = static_cast<std::ptrdiff_t>(stops.size());
    const bool isForward = direction == Direction::Forward;
    std::ptrdiff_t next = isForward ? 0 : count - 1;
    if (current != stops.rend())
        next = (std::distance(stops.begin(), current.base()) - 1 + (isForward ? 1 : count - 1)) % count;
    QQuickItem* const control = stops[static_cast<std::size_t>(next)];
    Q_EMIT moving();
    control->forceActiveFocus(isForward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

std::vector<QQuickItem*> TabOrder::nearestStopsWithin(const QQuickItem& item)
{
    std::vector<QQuickItem*> stops;
    for (QQuickItem* child : item.childItems()) {
        if (!child->isVisible() || !child->isEnabled())
            continue;
        const std::vector<QQuickItem*> found
            = child->activeFocusOnTab() ? std::vector{ child } : nearestStopsWithin(*child);
        stops.insert(stops.end(), found.begin(), found.end());
    }
    return stops;
}

std::vector<QQuickItem*> TabOrder::stopsWithin(const QQuickItem& item)
{
    std::vector<QQuickItem*> nearest = nearestStopsWithin(item);
    std::stable_sort(nearest.begin(), nearest.end(),
        [](const QQuickItem* a, const QQuickItem* b) { return readingPlace(a) < readingPlace(b); });
    std::vector<QQuickItem*> stops;
    for (QQuickItem* stop : nearest) {
        const std::vector<QQuickItem*> within = stopsWithin(*stop);
        stops.push_back(stop);
        stops.insert(stops.end(), within.begin(), within.end());
    }
    return stops;
}

} // namespace kit
