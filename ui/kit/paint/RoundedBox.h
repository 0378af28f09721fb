#pragma once

#include "ui/kit/paint/PixelItem.h"

#include <QColor>

namespace kit {

// A box with round corners, an edge and a fill that fades from top to bottom. The renderers of Qt draw such a rectangle
// with steps in its curves, and with corners beside its sides where a point is no whole number of pixels.
class RoundedBox : public PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor upper MEMBER m_upper NOTIFY changed)
    Q_PROPERTY(QColor lower MEMBER m_lower NOTIFY changed)
    Q_PROPERTY(QColor edge MEMBER m_edge NOTIFY changed)
    Q_PROPERTY(double edgeWidth MEMBER m_edgeWidth NOTIFY changed)
    Q_PROPERTY(double radius MEMBER m_radius NOTIFY changed)

public:
    explicit RoundedBox(QQuickItem* parent = nullptr);

Q_SIGNALS:
    void changed();

protected:
    QImage painted(const QSize& pixelSize, double scale) const override;

private:
    QColor m_upper;
    QColor m_lower;
    QColor m_edge;
    double m_edgeWidth = 1;
    double m_radius = 0;
};

} // namespace kit
