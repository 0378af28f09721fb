#pragma once

#include "ui/kit/spoken/SpokenItem.h"

namespace kit {

// A spoken item that keeps which of what it holds has the keyboard, while that is elsewhere.
class SpokenScope : public SpokenItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit SpokenScope(QQuickItem* parent = nullptr)
        : SpokenItem(parent)
    {
        setFlag(ItemIsFocusScope);
    }
};

} // namespace kit
