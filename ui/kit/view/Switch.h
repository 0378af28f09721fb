#pragma once

#include "ui/kit/view/View.h"

#include <functional>

namespace kit {

// An on/off switch, 51 by 31 points.
class Switch : public View
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("views are made in C++")
    Q_PROPERTY(bool on READ isOn NOTIFY onChanged)
    Q_PROPERTY(QColor onTint READ onTint CONSTANT)

public:
    explicit Switch(QObject* parent = nullptr);

    bool isOn() const { return m_on; }
    // Does not call the action.
    void setOn(bool on);
    void setOnTintColor(const Color& color) { m_onTintColor = color; }
    // Called with the switch after a person changed it.
    void setValueChanged(std::function<void(Switch*)> action) { m_valueChanged = std::move(action); }

    Q_INVOKABLE void toggle();

    QColor onTint() const { return m_onTintColor.toQColor(); }
    QString component() const override { return QStringLiteral("SwitchView"); }

Q_SIGNALS:
    void onChanged();

private:
    std::function<void(Switch*)> m_valueChanged;
    Color m_onTintColor{ 0.19, 0.35, 0.57, 1, {} };
    bool m_on = false;
};

} // namespace kit
