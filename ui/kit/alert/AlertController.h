#pragma once

#include "ui/kit/view/View.h"

#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace kit {

// A button of an alert.
class AlertAction : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(bool destructive READ isDestructive CONSTANT)
    Q_PROPERTY(bool cancel READ isCancel CONSTANT)

public:
    enum class Style { Default, Cancel, Destructive };

    AlertAction(const QString& title, Style style, std::function<void()> handler, QObject* parent);

    const QString& title() const { return m_title; }
    Style style() const { return m_style; }
    bool isDestructive() const { return m_style == Style::Destructive; }
    bool isCancel() const { return m_style == Style::Cancel; }
    void perform() const;

private:
    QString m_title;
    std::function<void()> m_handler;
    Style m_style;
};

// A text field of an alert.
class AlertTextField : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(QString placeholder READ placeholder CONSTANT)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(int inputHints READ inputHints CONSTANT)

public:
    enum class Keyboard { Default, URL };
    enum class Autocapitalization { None, Sentences };
    enum class Autocorrection { No, Yes };

    using QObject::QObject;

    const QString& placeholder() const { return m_placeholder; }
    void setPlaceholder(const QString& placeholder) { m_placeholder = placeholder; }
    void setKeyboardType(Keyboard keyboard) { m_keyboard = keyboard; }
    void setAutocapitalizationType(Autocapitalization type) { m_autocapitalization = type; }
    void setAutocorrectionType(Autocorrection type) { m_autocorrection = type; }
    const QString& text() const { return m_text; }
    void setText(const QString& text);
    // The settings as input method hints.
    int inputHints() const;

Q_SIGNALS:
    void textChanged();

private:
    QString m_placeholder;
    QString m_text = QLatin1String("");
    Keyboard m_keyboard = Keyboard::Default;
    Autocapitalization m_autocapitalization = Autocapitalization::Sentences;
    Autocorrection m_autocorrection = Autocorrection::Yes;
};

// A message with buttons over everything else, or a sheet of actions: at the lower edge of a phone's window, beside its
// source in one that is large. It is dismissed by any of its actions; the action's handler runs after that. Presented
// by ViewController::present(), which takes ownership.
class AlertController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString message READ message CONSTANT)
    Q_PROPERTY(bool sheet READ isSheet CONSTANT)
    Q_PROPERTY(QRectF anchor READ anchor NOTIFY anchorChanged)
    Q_PROPERTY(QList<AlertAction*> actions READ actions NOTIFY contentChanged)
    Q_PROPERTY(QList<AlertTextField*> textFields READ textFields NOTIFY contentChanged)

public:
    enum class Style { Alert, ActionSheet };

    AlertController(const QString& title, const QString& message, Style style);

    const QString& title() const { return m_title; }
    const QString& message() const { return m_message; }
    Style style() const { return m_style; }
    bool isSheet() const { return m_style == Style::ActionSheet; }
    void addAction(const QString& title, AlertAction::Style style, std::function<void()> handler = {});
    AlertTextField* addTextField();
    // What a sheet in a large window stands beside and points at: a rectangle in the view's content, asked for anew
    // when the view moves or scrolls; without one, all of the view. The view may go before the sheet does.
    void setSource(View* view, std::function<QRectF()> rect = {});
    const View* sourceView() const { return m_sourceView; }
    // That rectangle in the window, as much of it as the view shows; empty without a source.
    QRectF anchor() const;
    const QList<AlertAction*>& actions() const { return m_actions; }
    const QList<AlertTextField*>& textFields() const { return m_textFields; }

    // A person chose: dismisses the alert and runs the action.
    Q_INVOKABLE void choose(int action);
    // Return: the last action of the default style, for a held key must destroy nothing. Escape, or a touch outside a
    // sheet: the cancel action. Either takes the only action there is.
    Q_INVOKABLE void confirm();
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void contentChanged();
    void anchorChanged();
    void dismissed();

private:
    QString m_title;
    QString m_message;
    Style m_style;
    QPointer<View> m_sourceView;
    std::function<QRectF()> m_sourceRect;
    QList<AlertAction*> m_actions;
    QList<AlertTextField*> m_textFields;
    bool m_dismissed = false;
};

} // namespace kit
