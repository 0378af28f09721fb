#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QColor>
#include <QImage>

// The bytes of a PNG of one colour.
inline QByteArray pngOf(const QColor& color, const QSize& size = { 40, 40 })
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}
