#include "ui/kit/alert/PanelShape.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPolygonF>

namespace kit {

namespace {

constexpr double EdgeWidth = 2;

// The arrow's outline lies within the panel's own by half the width of the edge, as the whole outline does.
QPolygonF arrow(PanelPlace::ArrowEdge edge, double tip, const QRectF& body)
{
    constexpr double Half = PanelPlace::ArrowHalfWidth;
    constexpr double Length = PanelPlace::ArrowLength;
    // Into the body, so that the two are one outline.
    constexpr double Root = 4;
    const double x = body.left() + tip;
    const double y = body.top() + tip;
    switch (edge) {
    case PanelPlace::TopEdge:
        return { { { x - Half, body.top() + Root }, { x - Half, body.top() }, { x, body.top() - Length },
            { x + Half, body.top() }, { x + Half, body.top() + Root } } };
    case PanelPlace::BottomEdge:
        return { { { x - Half, body.bottom() - Root }, { x - Half, body.bottom() }, { x, body.bottom() + Length },
            { x + Half, body.bottom() }, { x + Half, body.bottom() - Root } } };
    case PanelPlace::LeftEdge:
        return { { { body.left() + Root, y - Half }, { body.left(), y - Half }, { body.left() - Length, y },
            { body.left(), y + Half }, { body.left() + Root, y + Half } } };
    case PanelPlace::RightEdge:
        return { { { body.right() - Root, y - Half }, { body.right(), y - Half }, { body.right() + Length, y },
            { body.right(), y + Half }, { body.right() - Root, y + Half } } };
    case PanelPlace::NoArrow:
        break;
    }
    return {};
}

} // namespace

PanelShape::PanelShape(QQuickItem* parent)
    : QQuickPaintedItem(parent)
{
    connect(this, &PanelShape::shapeChanged, this, [this] { update(); });
}

void PanelShape::setPlace(const PanelPlace& place)
{
    m_place = place;
    Q_EMIT shapeChanged();
}

QPainterPath PanelShape::outline() const
{
    constexpr double Inset = Reach + EdgeWidth / 2;
    const QRectF body = boundingRect().adjusted(Inset, Inset, -Inset, -Inset);
    QPainterPath panel;
    panel.addRoundedRect(body, PanelPlace::CornerRadius - EdgeWidth / 2, PanelPlace::CornerRadius - EdgeWidth / 2);
    QPainterPath pointer;
    pointer.addPolygon(arrow(m_place.arrowEdge(), m_place.arrowTip() - EdgeWidth / 2, body));
    return panel.united(pointer);
}

void PanelShape::paint(QPainter* painter)
{
    constexpr int ShadowSteps = 16;
    const QPainterPath path = outline();
    painter->setRenderHint(QPainter::Antialiasing);
    QColor veil = m_shadow;
    veil.setAlphaF(m_shadow.alphaF() / ShadowSteps);
    for (int step = 1; step <= ShadowSteps; ++step)
        painter->strokePath(
            path.translated(0, 2), QPen(veil, 0.125 * step * step, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QLinearGradient body(0, Reach, 0, height() - Reach);
    body.setColorAt(0, m_top);
    body.setColorAt(1, m_bottom);
    painter->fillPath(path, body);
    painter->strokePath(path, QPen(m_edge, EdgeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

} // namespace kit
