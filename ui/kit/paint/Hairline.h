#pragma once

#include "ui/kit/paint/PixelItem.h"

#include <QColor>

namespace kit {

// A line of one device pixel at every scale, as wide as it is told. It stands on whole pixels wherever its
// neighbours do.
class Hairline : public PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY colorChanged)

public:
    explicit Hairline(QQuickItem* parent = nullptr);

Q_SIGNALS:
    void colorChanged();

protected:
    QImage painted(const QSize& pixelSize, double scale) const override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void takeHeight();

    QColor m_color;
};

} // namespace kit
