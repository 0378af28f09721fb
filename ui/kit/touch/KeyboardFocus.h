#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace kit {

// Whether the person is working with the keyboard: only then is it shown which control has the focus.
class KeyboardFocus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool shown MEMBER m_shown NOTIFY shownChanged)

Q_SIGNALS:
    void shownChanged();

private:
    bool m_shown = false;
};

} // namespace kit
