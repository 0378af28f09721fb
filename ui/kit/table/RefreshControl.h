#pragma once

#include "ui/kit/paint/Color.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace kit {

// The spinner above a table that a pull starts. Belongs to its table, whose TableBody.qml says how far a pull goes.
class RefreshControl : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(bool refreshing READ isRefreshing NOTIFY refreshingChanged)
    Q_PROPERTY(QColor tint READ tint NOTIFY tintChanged)

public:
    using QObject::QObject;

    const Color& tintColor() const { return m_tintColor; }
    void setTintColor(const Color& color);
    bool isRefreshing() const { return m_refreshing; }
    // Show and end the spinner; they do not call the action.
    void beginRefreshing();
    void endRefreshing();
    void setValueChanged(std::function<void()> action) { m_valueChanged = std::move(action); }

    // A person pulled far enough: starts the spinner and calls the action, also while a refresh is running.
    Q_INVOKABLE void pull();

    QColor tint() const { return m_tintColor.toQColor(); }

Q_SIGNALS:
    void refreshingChanged();
    void tintChanged();

private:
    void setRefreshing(bool refreshing);

    Color m_tintColor = Color::black();
    std::function<void()> m_valueChanged;
    bool m_refreshing = false;
};

} // namespace kit
