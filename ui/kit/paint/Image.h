#pragma once

#include "ui/kit/paint/Geometry.h"

#include <QByteArray>
#include <QImage>
#include <QMetaType>
#include <QSizeF>
#include <QString>

#include <memory>

namespace kit {

// A picture measured in points, with pixels for one or more scales. A value: copies share their pixels.
// An Image made without arguments is "none". Safe to make and read on any thread.
class Image
{
public:
    enum class ResizingMode { Tile, Stretch };
    enum class RenderingMode { Original, Template };

    Image() = default;

    // The asset of that name, or none.
    static Image named(const QString& name);
    // The symbol of that name, a template to be drawn in a tint colour, or none.
    static Image systemNamed(const QString& name);
    // A control's own glyph (an arrow, a checkmark), a template, or none.
    static Image glyphNamed(const QString& name);
    // A picture decoded from a file's bytes, whose pixels are for the given scale; none when they do not decode. A
    // picture of more than maximumPixels a side is scaled down while it is decoded; one of more than 4,096, or that
    // takes more than 64 MiB on the way, is refused.
    static Image fromData(const QByteArray& data, double scale, int maximumPixels = 512);

    Image resizable(const EdgeInsets& capInsets, ResizingMode mode) const;

    bool isNull() const { return !m_source; }
    QSizeF size() const;
    const EdgeInsets& capInsets() const { return m_capInsets; }
    ResizingMode resizingMode() const { return m_resizingMode; }
    bool isResizable() const { return m_resizable; }
    RenderingMode renderingMode() const;
    // The pixels made for the smallest scale that is not below the wanted one, else for the largest there is. The
    // image's devicePixelRatio tells which scale that was.
    QImage pixels(double scale) const;
    // Equal for images that share their pixels, and for no others.
    quint64 identity() const;

    friend bool operator==(const Image&, const Image&) = default;

private:
    class Source;
    static Image load(const QString& folder, const QString& name, RenderingMode mode);

    std::shared_ptr<const Source> m_source;
    EdgeInsets m_capInsets;
    ResizingMode m_resizingMode = ResizingMode::Stretch;
    bool m_resizable = false;
};

} // namespace kit

Q_DECLARE_METATYPE(kit::Image)
