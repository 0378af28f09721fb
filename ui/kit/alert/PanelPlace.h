#pragma once

#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QtQml/qqmlregistration.h>

namespace kit {

// Where a panel stands that belongs to something in the window, and where its arrow points from. Lengths are points.
class PanelPlace
{
    Q_GADGET
    QML_VALUE_TYPE(panelPlace)
    Q_PROPERTY(double x READ x CONSTANT)
    Q_PROPERTY(double y READ y CONSTANT)
    Q_PROPERTY(int arrowEdge READ arrowEdge CONSTANT)
    Q_PROPERTY(double arrowTip READ arrowTip CONSTANT)

public:
    // The edge of the panel that the arrow grows from.
    enum ArrowEdge { NoArrow, TopEdge, BottomEdge, LeftEdge, RightEdge };
    Q_ENUM(ArrowEdge)

    static constexpr double ArrowLength = 15;
    static constexpr double ArrowHalfWidth = 17;
    static constexpr double CornerRadius = 12;
    // Between the panel and the window's edge.
    static constexpr double Margin = 8;

    PanelPlace() = default;
    // Below the anchor if the window has room for it there, else above, right or left of it. Where none of these has
    // room, over the middle of the anchor, without an arrow. Always inside a window that is large enough.
    PanelPlace(const QSizeF& panel, const QRectF& anchor, const QSizeF& window);

    double x() const { return m_origin.x(); }
    double y() const { return m_origin.y(); }
    ArrowEdge arrowEdge() const { return m_arrowEdge; }
    // Along that edge from the panel's upper left corner.
    double arrowTip() const { return m_arrowTip; }

private:
    bool standsAt(ArrowEdge edge, const QSizeF& panel, const QRectF& anchor, const QRectF& room);

    QPointF m_origin;
    double m_arrowTip = 0;
    ArrowEdge m_arrowEdge = NoArrow;
};

// Hands places to QML.
class PanelPlacing : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    Q_INVOKABLE static PanelPlace beside(const QRectF& anchor, const QSizeF& panel, const QSizeF& window)
    {
        return { panel, anchor, window };
    }
};

} // namespace kit
