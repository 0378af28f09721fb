#pragma once

#include "ui/kit/paint/Image.h"
#include "ui/kit/paint/PixelItem.h"

#include <QColor>

namespace kit {

// Draws an Image: stretched, tiled or fitted, tinted and with round corners. All items that show the same one share its
// pixels.
class ImageItem : public PixelItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(kit::Image image READ image WRITE setImage NOTIFY imageChanged)
    Q_PROPERTY(bool present READ isPresent NOTIFY imageChanged)
    Q_PROPERTY(QColor tint READ tint WRITE setTint NOTIFY imageChanged)
    Q_PROPERTY(Mode mode READ mode WRITE setMode NOTIFY imageChanged)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY imageChanged)

public:
    // The numbers are those of ImageView::ContentMode, then what only backgrounds use.
    enum Mode { ScaleToFill, AspectFit, Tile };
    Q_ENUM(Mode)

    using PixelItem::PixelItem;

    const Image& image() const { return m_image; }
    void setImage(const Image& image);
    bool isPresent() const { return !m_image.isNull(); }
    QColor tint() const { return m_tint; }
    void setTint(const QColor& tint);
    Mode mode() const { return m_mode; }
    void setMode(Mode mode);
    double radius() const { return m_radius; }
    void setRadius(double radius);

Q_SIGNALS:
    void imageChanged();

protected:
    QImage painted(const QSize& pixelSize, double scale) const override;

private:
    void changed();

    Image m_image;
    QColor m_tint = Qt::black;
    Mode m_mode = ScaleToFill;
    double m_radius = 0;
};

} // namespace kit
