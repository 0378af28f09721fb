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

public:
    explicit Switch(QObject* parent = nullptr);

    bool isOn() const { return m_on; }
    // Does not call the action.
    void setOn(bool on);
    // Called with the switch after a person changed it.
    void setValueChanged(std::function<void(Switch*)> action) { m_valueChanged = std::move(action); }

    Q_INVOKABLE void toggle();

    QString component() const override { return QStringLiteral("SwitchView"); }

Q_SIGNALS:
    void onChanged();

private:
    std::function<void(Switch*)> m_valueChanged;
    bool m_on = false;
};

} // namespace kit
