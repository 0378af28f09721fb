#pragma once

#include "ui/kit/paint/Animations.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace kit {

// How long a movement drawn in QML takes: nothing at all while animations are off.
class Motion : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    // In milliseconds.
    enum Duration {
        Flip = 150, // of a switch
        Shift = 200, // of what comes, goes or makes room
        Fade = Animations::Fade,
        Linger = 700, // of what shows only for a moment
    };
    Q_ENUM(Duration)

    Q_INVOKABLE static int duration(int milliseconds) { return Animations::duration(milliseconds); }
};

} // namespace kit
