#pragma once

#include "ui/kit/text/TextScale.h"
#include "ui/kit/text/WritingDirection.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace kit {

// The colours and words of what no screen styles: alerts, the delete button, the search field, focus and press
// feedback.
class KitLook : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QColor shade MEMBER m_shade CONSTANT)
    Q_PROPERTY(QColor lightShade MEMBER m_lightShade CONSTANT)
    Q_PROPERTY(QColor panelTop MEMBER m_panelTop CONSTANT)
    Q_PROPERTY(QColor panelBottom MEMBER m_panelBottom CONSTANT)
    Q_PROPERTY(QColor panelEdge MEMBER m_panelEdge CONSTANT)
    Q_PROPERTY(QColor panelText MEMBER m_panelText CONSTANT)
    Q_PROPERTY(QColor buttonTop MEMBER m_buttonTop CONSTANT)
    Q_PROPERTY(QColor buttonBottom MEMBER m_buttonBottom CONSTANT)
    Q_PROPERTY(QColor cancelTop MEMBER m_cancelTop CONSTANT)
    Q_PROPERTY(QColor cancelBottom MEMBER m_cancelBottom CONSTANT)
    Q_PROPERTY(QColor destructiveTop MEMBER m_destructiveTop CONSTANT)
    Q_PROPERTY(QColor destructiveBottom MEMBER m_destructiveBottom CONSTANT)
    Q_PROPERTY(QColor edge MEMBER m_edge CONSTANT)
    Q_PROPERTY(QColor highlight MEMBER m_highlight CONSTANT)
    Q_PROPERTY(QColor textShadow MEMBER m_textShadow CONSTANT)
    Q_PROPERTY(QColor field MEMBER m_field CONSTANT)
    Q_PROPERTY(QColor fieldText MEMBER m_fieldText CONSTANT)
    Q_PROPERTY(QColor fieldPlaceholder MEMBER m_fieldPlaceholder CONSTANT)
    Q_PROPERTY(QColor focus MEMBER m_focus CONSTANT)
    Q_PROPERTY(QColor knobTop MEMBER m_knobTop CONSTANT)
    Q_PROPERTY(QColor knobBottom MEMBER m_knobBottom CONSTANT)
    Q_PROPERTY(QColor switchOn MEMBER m_switchOn CONSTANT)
    Q_PROPERTY(QColor switchOff MEMBER m_switchOff CONSTANT)
    Q_PROPERTY(bool enlargesTexts READ enlargesTexts CONSTANT)
    Q_PROPERTY(QString deleteTitle MEMBER m_deleteTitle CONSTANT)
    Q_PROPERTY(QString cancelTitle MEMBER m_cancelTitle CONSTANT)
    Q_PROPERTY(QString clearTitle MEMBER m_clearTitle CONSTANT)
    Q_PROPERTY(QString backTitle MEMBER m_backTitle CONSTANT)
    Q_PROPERTY(QString refreshingTitle MEMBER m_refreshingTitle CONSTANT)
    // Of a row and the number of rows in its section.
    Q_PROPERTY(QString placeTitle MEMBER m_placeTitle CONSTANT)
    Q_PROPERTY(QString selectTitle MEMBER m_selectTitle CONSTANT)
    Q_PROPERTY(QString selectAllTitle MEMBER m_selectAllTitle CONSTANT)
    Q_PROPERTY(QString cutTitle MEMBER m_cutTitle CONSTANT)
    Q_PROPERTY(QString copyTitle MEMBER m_copyTitle CONSTANT)
    Q_PROPERTY(QString pasteTitle MEMBER m_pasteTitle CONSTANT)

public:
    // The text scale, for what tells its own sizes.
    bool enlargesTexts() const { return TextScale::value() > 1; }
    Q_INVOKABLE double grown(double height) const { return TextScale::grown(height); }
    Q_INVOKABLE QFont font(int size, int weight) const { return fontOf(TextScale::fontSize(size), weight); }
    Q_INVOKABLE QFont barFont(int size, int weight) const { return fontOf(TextScale::barFontSize(size), weight); }
    // And for texts of screens that no label shows.
    Q_INVOKABLE QString shown(const QString& text) const { return WritingDirection::shown(text); }
    Q_INVOKABLE QString shownSentence(const QString& text) const { return WritingDirection::shownSentence(text); }

private:
    static QFont fontOf(int pixelSize, int weight);

    QColor m_shade{ 0, 0, 0, 110 };
    QColor m_lightShade{ 0, 0, 0, 60 };
    QColor m_panelTop{ 66, 92, 130 };
    QColor m_panelBottom{ 27, 45, 78 };
    QColor m_panelEdge{ 226, 233, 242, 230 };
    QColor m_panelText{ 255, 255, 255 };
    QColor m_buttonTop{ 151, 171, 199 };
    QColor m_buttonBottom{ 84, 110, 148 };
    QColor m_cancelTop{ 100, 119, 148 };
    QColor m_cancelBottom{ 48, 66, 96 };
    QColor m_destructiveTop{ 220, 92, 84 };
    QColor m_destructiveBottom{ 160, 30, 26 };
    QColor m_edge{ 14, 24, 42, 200 };
    QColor m_highlight{ 255, 255, 255, 90 };
    QColor m_textShadow{ 0, 0, 0, 107 };
    QColor m_field{ 255, 255, 255 };
    QColor m_fieldText{ 25, 50, 80 };
    QColor m_fieldPlaceholder{ 132, 143, 158 };
    QColor m_focus{ 236, 129, 17 };
    QColor m_knobTop{ 255, 255, 255 };
    QColor m_knobBottom{ 216, 222, 230 };
    QColor m_switchOn = QColor::fromRgbF(0.19F, 0.35F, 0.57F);
    QColor m_switchOff{ 176, 186, 198 };
    QString m_deleteTitle = QStringLiteral("Delete");
    QString m_cancelTitle = QStringLiteral("Cancel");
    QString m_clearTitle = QStringLiteral("Clear text");
    QString m_backTitle = QStringLiteral("Back");
    QString m_refreshingTitle = QStringLiteral("Refreshing");
    QString m_placeTitle = QStringLiteral("%1 of %2");
    QString m_selectTitle = QStringLiteral("Select");
    QString m_selectAllTitle = QStringLiteral("Select All");
    QString m_cutTitle = QStringLiteral("Cut");
    QString m_copyTitle = QStringLiteral("Copy");
    QString m_pasteTitle = QStringLiteral("Paste");
};

} // namespace kit
