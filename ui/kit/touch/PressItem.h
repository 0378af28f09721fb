#pragma once

#include "ui/kit/spoken/SpokenScope.h"

namespace kit {

// The root of a control drawn in QML that is pressed: by keys, by a screen reader and by what its file adds.
class PressItem : public SpokenScope
{
    Q_OBJECT
    QML_ELEMENT
    // Holds on to a finger or the mouse that it has, against all that would scroll.
    Q_PROPERTY(bool keepsFinger READ keepsFinger WRITE setKeepsFinger NOTIFY keepsFingerChanged)

public:
    explicit PressItem(QQuickItem* parent = nullptr);

    bool keepsFinger() const { return keepTouchGrab(); }
    void setKeepsFinger(bool keeps);

Q_SIGNALS:
    void keepsFingerChanged();
    // By a screen reader not while the item is disabled.
    void pressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace kit
