#pragma once

#include "ui/kit/alert/PanelPlace.h"

#include <QColor>
#include <QPainterPath>
#include <QQuickPaintedItem>

namespace kit {

// The body of a panel with an arrow, in one outline, over its own soft shadow. The item reaches beyond the panel by
// the reach on every side.
class PanelShape : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(panelPlace place READ place WRITE setPlace NOTIFY shapeChanged)
    Q_PROPERTY(QColor topColor MEMBER m_top NOTIFY shapeChanged)
    Q_PROPERTY(QColor bottomColor MEMBER m_bottom NOTIFY shapeChanged)
    Q_PROPERTY(QColor edgeColor MEMBER m_edge NOTIFY shapeChanged)
    Q_PROPERTY(QColor shadowColor MEMBER m_shadow NOTIFY shapeChanged)
    Q_PROPERTY(double reach READ reach CONSTANT)

    using panelPlace = PanelPlace;

public:
    explicit PanelShape(QQuickItem* parent = nullptr);

    static constexpr double Reach = 36;
    static double reach() { return Reach; }
    const PanelPlace& place() const { return m_place; }
    void setPlace(const PanelPlace& place);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void shapeChanged();

private:
    QPainterPath outline() const;

    PanelPlace m_place;
    QColor m_top;
    QColor m_bottom;
    QColor m_edge;
    QColor m_shadow;
};

} // namespace kit
