#pragma once

#include "ui/kit/paint/Image.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace kit {

// The glyphs that the kit's own controls draw.
class GlyphImages : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(kit::Image back MEMBER m_back CONSTANT)
    Q_PROPERTY(kit::Image clear MEMBER m_clear CONSTANT)
    Q_PROPERTY(kit::Image search MEMBER m_search CONSTANT)

private:
    Image m_back = Image::glyphNamed(QStringLiteral("chevron.left"));
    Image m_clear = Image::glyphNamed(QStringLiteral("xmark.circle.fill"));
    Image m_search = Image::systemNamed(QStringLiteral("magnifyingglass"));
};

} // namespace kit
