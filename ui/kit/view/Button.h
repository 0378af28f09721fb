#pragma once

#include "ui/kit/view/Label.h"

#include <functional>

namespace kit {

// A titled push button with a stretched background image; a press calls the action.
class Button : public View
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("views are made in C++")
    Q_PROPERTY(QString title READ title NOTIFY buttonChanged)
    Q_PROPERTY(kit::Label* titleLabel READ titleLabel CONSTANT)
    Q_PROPERTY(kit::Image backgroundImage READ backgroundImage NOTIFY buttonChanged)
    Q_PROPERTY(bool enabled READ isEnabled NOTIFY buttonChanged)

public:
    explicit Button(QObject* parent = nullptr);

    const QString& title() const { return m_titleLabel->text(); }
    void setTitle(const QString& title);
    void setTitleColor(const Color& color) { m_titleLabel->setTextColor(color); }
    // Carries the title's font and shadow.
    Label* titleLabel() const { return m_titleLabel; }
    const Image& backgroundImage() const { return m_backgroundImage; }
    void setBackgroundImage(const Image& image);
    const EdgeInsets& contentEdgeInsets() const { return m_contentEdgeInsets; }
    void setContentEdgeInsets(const EdgeInsets& insets);
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    // Called with the button at every press of it.
    void setAction(std::function<void(Button*)> action) { m_action = std::move(action); }
    // The size that just holds the title and its insets.
    QSizeF naturalSize() const;
    // Takes that size, at the origin it has.
    void sizeToFit();

    Q_INVOKABLE void press();

    void layoutSubviews() override;
    QString component() const override { return QStringLiteral("ButtonView"); }

Q_SIGNALS:
    void buttonChanged();

private:
    Label* m_titleLabel;
    Image m_backgroundImage;
    EdgeInsets m_contentEdgeInsets;
    std::function<void(Button*)> m_action;
    bool m_enabled = true;
};

} // namespace kit
