#pragma once

#include "ui/kit/text/Font.h"
#include "ui/kit/view/View.h"

#include <QFont>
#include <QQuickItem>

namespace kit {

// A text of one or more lines, drawn in the middle of its frame's height.
//
// One line aligned at the left stays there whichever way it is written: rows are read down along their pictures.
// Several lines are prose, and begin at the side where their writing does.
class Label : public View
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("views are made in C++")
    Q_PROPERTY(QString shownText READ shownText NOTIFY labelChanged)
    Q_PROPERTY(QString text READ text NOTIFY labelChanged)
    Q_PROPERTY(QFont font READ shownFont NOTIFY labelChanged)
    Q_PROPERTY(QColor color READ color NOTIFY labelChanged)
    Q_PROPERTY(int alignment READ alignment NOTIFY labelChanged)
    Q_PROPERTY(int numberOfLines READ numberOfLines NOTIFY labelChanged)
    Q_PROPERTY(bool enlarged READ isEnlarged CONSTANT)
    Q_PROPERTY(int smallestFontSize READ smallestFontSize NOTIFY labelChanged)
    Q_PROPERTY(bool adjustsFontSizeToFitWidth READ adjustsFontSizeToFitWidth NOTIFY labelChanged)
    Q_PROPERTY(Shadow shadow READ shadow NOTIFY labelChanged)
    Q_PROPERTY(QColor shadowColor READ shadowQColor NOTIFY labelChanged)

public:
    // Where a one-point shadow falls.
    enum class Shadow { None, Below, Above };
    Q_ENUM(Shadow)

    explicit Label(const QRectF& frame = {}, QObject* parent = nullptr);

    const QString& text() const { return m_text; }
    void setText(const QString& text);
    // At the usual text size.
    const QFont& font() const { return m_font; }
    // By the text scale.
    QFont shownFont() const { return Font::enlarged(m_font); }
    void setFont(const QFont& font);
    const Color& textColor() const { return m_textColor; }
    void setTextColor(const Color& color);
    Qt::AlignmentFlag textAlignment() const { return m_alignment; }
    void setTextAlignment(Qt::AlignmentFlag alignment);
    // 0 stands for as many lines as the text needs.
    int numberOfLines() const { return m_numberOfLines; }
    void setNumberOfLines(int lines);
    bool adjustsFontSizeToFitWidth() const { return m_adjustsFontSize; }
    void setAdjustsFontSizeToFitWidth(bool adjusts);
    Shadow shadow() const { return m_shadow; }
    const Color& shadowColor() const { return m_shadowColor; }
    void setShadow(Shadow shadow, const Color& color);

    bool isLike(const View& other) const override;

    // The width of the text on one line.
    double naturalWidth() const;

    // As much of the text as could ever be seen, for what a source sends may be megabytes long, and so that it moves no
    // other text about.
    QString shownText() const { return shownPart(m_text, m_numberOfLines); }
    static QString shownPart(const QString& text, int numberOfLines);
    // For the item that draws the text: by itself it draws only the lines of a long text that it takes to be in sight,
    // which are not those that are.
    Q_INVOKABLE static void drawWhole(QQuickItem* item);
    // By the text scale: then a text that does not fit shrinks, by a third where its frame has grown with it, and to
    // its size at the usual scale where the frame is too low.
    bool isEnlarged() const;
    int smallestFontSize() const;
    QColor color() const { return m_textColor.toQColor(); }
    int alignment() const { return m_alignment; }
    QColor shadowQColor() const { return m_shadowColor.toQColor(); }
    QString component() const override { return QStringLiteral("LabelView"); }

Q_SIGNALS:
    void labelChanged();

private:
    QString m_text;
    QFont m_font;
    Color m_textColor = Color::black();
    Color m_shadowColor;
    Qt::AlignmentFlag m_alignment = Qt::AlignLeft;
    int m_numberOfLines = 1;
    Shadow m_shadow = Shadow::None;
    bool m_adjustsFontSize = false;
};

} // namespace kit
