#pragma once

#include "ui/kit/spoken/SpokenScope.h"

namespace kit {

// The root of a control drawn in QML that is pressed: by keys, by a screen reader and by what its file adds.
class PressItem : public SpokenScope
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit PressItem(QQuickItem* parent = nullptr);

Q_SIGNALS:
    // By a screen reader not while the item is disabled.
    void pressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace kit
