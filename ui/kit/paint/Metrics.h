#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace kit {

// The sizes that several parts of the kit share, in points.
class Metrics : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    enum Size {
        NavigationBarHeight = 44,
        SearchBarHeight = 52,
        TabBarHeight = 49,
        // What a finger finds with ease.
        TouchSize = 44,
        // Text fields and the corners of what has round ones.
        FieldHeight = 34,
        CornerRadius = 6,
    };
    Q_ENUM(Size)
};

} // namespace kit
