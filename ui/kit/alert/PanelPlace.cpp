#include "ui/kit/alert/PanelPlace.h"

#include <algorithm>
#include <cmath>

namespace kit {

namespace {

// As near to the wanted start as the room lets a length of that size be; at the room's start where it is too long.
double held(double wanted, double length, double from, double to)
{
    return std::round(std::max(from, std::min(wanted, to - length)));
}

double tipOn(double length, double wanted)
{
    constexpr double Nearest = PanelPlace::CornerRadius + PanelPlace::ArrowHalfWidth;
    return std::max(Nearest, std::min(wanted, length - Nearest));
}

} // namespace

PanelPlace::PanelPlace(const QSizeF& panel, const QRectF& anchor, const QSizeF& window)
{
    const QRectF whole({ 0, 0 }, window);
    const QRectF room = whole.adjusted(Margin, Margin, -Margin, -Margin);
    const QRectF seen = anchor & whole;
    if (!seen.isEmpty())
        for (const ArrowEdge edge : { TopEdge, BottomEdge, LeftEdge, RightEdge })
            if (standsAt(edge, panel, seen, room))
                return;
    const QPointF middle = seen.isEmpty() ? whole.center() : seen.center();
    m_origin = { held(middle.x() - panel.width() / 2, panel.width(), room.left(), room.right()),
        held(middle.y() - panel.height() / 2, panel.height(), room.top(), room.bottom()) };
}

bool PanelPlace::standsAt(ArrowEdge edge, const QSizeF& panel, const QRectF& anchor, const QRectF& room)
{
    const bool isUpright = edge == TopEdge || edge == BottomEdge;
    const double w = panel.width();
    const double h = panel.height();
    const QPointF middle = anchor.center();
    if (isUpright)
        m_origin = { held(middle.x() - w / 2, w, room.left(), room.right()),
            edge == TopEdge ? std::ceil(anchor.bottom()) + ArrowLength : std::floor(anchor.top()) - ArrowLength - h };
    else
        m_origin = { edge == LeftEdge ? std::ceil(anchor.right()) + ArrowLength
                                      : std::floor(anchor.left()) - ArrowLength - w,
            held(middle.y() - h / 2, h, room.top(), room.bottom()) };
    if (!room.contains(QRectF(m_origin, panel)))
        return false;
    m_arrowEdge = edge;
    m_arrowTip = isUpright ? tipOn(w, middle.x() - m_origin.x()) : tipOn(h, middle.y() - m_origin.y());
    return true;
}

} // namespace kit
