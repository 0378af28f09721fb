#include "ui/kit/view/Label.h"

#include "ui/kit/text/TextScale.h"
#include "ui/kit/text/WritingDirection.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace kit {

Label::Label(const QRectF& frame, QObject* parent)
    : View(frame, parent)
    , m_font(Font::systemFont(17))
{
    connect(this, &View::frameChanged, this, [this] {
        if (isEnlarged())
            Q_EMIT labelChanged();
    });
}

void Label::setText(const QString& text)
{
    if (m_text == text && m_text.isNull() == text.isNull())
        return;
    m_text = text;
    Q_EMIT labelChanged();
}

void Label::setFont(const QFont& font)
{
    if (m_font == font)
        return;
    m_font = font;
    Q_EMIT labelChanged();
}

void Label::setTextColor(const Color& color)
{
    if (m_textColor == color)
        return;
    m_textColor = color;
    Q_EMIT labelChanged();
}

void Label::setTextAlignment(Qt::AlignmentFlag alignment)
{
    if (m_alignment == alignment)
        return;
    m_alignment = alignment;
    Q_EMIT labelChanged();
}

void Label::setNumberOfLines(int lines)
{
    if (m_numberOfLines == lines)
        return;
    m_numberOfLines = lines;
    Q_EMIT labelChanged();
}

void Label::setAdjustsFontSizeToFitWidth(bool adjusts)
{
    if (m_adjustsFontSize == adjusts)
        return;
    m_adjustsFontSize = adjusts;
    Q_EMIT labelChanged();
}

void Label::setShadow(Shadow shadow, const Color& color)
{
    m_shadow = shadow;
    m_shadowColor = color;
    Q_EMIT labelChanged();
}

bool Label::isLike(const View& other) const
{
    const auto look = [](const Label& label) {
        return std::tie(label.m_text, label.m_font, label.m_textColor, label.m_shadowColor, label.m_alignment,
            label.m_numberOfLines, label.m_shadow, label.m_adjustsFontSize);
    };
    return hasLikeFrameAndSubviews(other) && look(*this) == look(static_cast<const Label&>(other));
}

QString Label::shownPart(const QString& text, int numberOfLines)
{
    constexpr qsizetype LongestLine = 1000;
    constexpr qsizetype LongestText = 20000;
    if (numberOfLines > 0)
        return WritingDirection::shown(text.left(LongestLine * numberOfLines));
    return WritingDirection::shown(text.size() <= LongestText ? text : text.left(LongestText - 1) + QChar(0x2026));
}

void Label::drawWhole(QQuickItem* item)
{
    item->setFlag(QQuickItem::ItemObservesViewport, false);
}

double Label::naturalWidth() const
{
    return QFontMetricsF(shownFont()).horizontalAdvance(shownText());
}

bool Label::isEnlarged() const
{
    return TextScale::value() > 1;
}

int Label::smallestFontSize() const
{
    constexpr int SmallestLegible = 8;
    constexpr double LeastOfEnlarged = 2.0 / 3;
    if (m_adjustsFontSize)
        return TextScale::fontSize(SmallestLegible);
    const int standard = m_font.pixelSize();
    QFont least = shownFont();
    least.setPixelSize(std::max(standard, static_cast<int>(std::ceil(least.pixelSize() * LeastOfEnlarged))));
    const bool hasRoom = QFontMetricsF(least).height() * m_numberOfLines <= height();
    return hasRoom ? least.pixelSize() : standard;
}

} // namespace kit
