#pragma once

#include "ui/kit/paint/Image.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace kit {

// A text or image button in a navigation bar.
class BarButtonItem : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(kit::Image image READ image CONSTANT)
    Q_PROPERTY(bool emphasised READ isEmphasised CONSTANT)
    Q_PROPERTY(bool enabled READ isEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QString shortcut READ shortcut CONSTANT)
    Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel CONSTANT)

public:
    // Done is the emphasised style of the action that ends what the screen is for.
    enum class Style { Plain, Done };

    BarButtonItem(const QString& title, Style style, std::function<void()> action);
    // The accessibility label is what a screen reader says for the image.
    BarButtonItem(const Image& image, const QString& accessibilityLabel, std::function<void()> action);

    const QString& title() const { return m_title; }
    const Image& image() const { return m_image; }
    Style style() const { return m_style; }
    bool isEmphasised() const { return m_style == Style::Done; }
    const QString& accessibilityLabel() const { return m_accessibilityLabel; }
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);

    // The keys that press the item while its screen shows, such as "F5; Ctrl+R"; set once, before the screen shows.
    const QString& shortcut() const { return m_shortcut; }
    void setShortcut(const QString& keys) { m_shortcut = keys; }

    // Calls the action unless the item is disabled.
    Q_INVOKABLE void press();

Q_SIGNALS:
    void enabledChanged();

private:
    QString m_title;
    Image m_image;
    QString m_accessibilityLabel;
    QString m_shortcut;
    std::function<void()> m_action;
    Style m_style = Style::Plain;
    bool m_enabled = true;
};

// A tab's title and image.
class TabBarItem : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(QString title READ title NOTIFY itemChanged)
    Q_PROPERTY(kit::Image image READ image NOTIFY itemChanged)

public:
    using QObject::QObject;

    const QString& title() const { return m_title; }
    void setTitle(const QString& title);
    const Image& image() const { return m_image; }
    void setImage(const Image& image);

Q_SIGNALS:
    void itemChanged();

private:
    QString m_title;
    Image m_image;
};

} // namespace kit
