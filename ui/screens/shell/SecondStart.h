#pragma once

#include "ui/screens/shell/InstanceLock.h"

// What a start becomes that found another program on its settings file.
enum class SecondStart {
    // The other one ended meanwhile, and this one has its lock.
    TakesItsPlace,
    // The other one brought its window to the front.
    RaisedTheFirst,
    // The other one runs and answers nobody on a session bus.
    CannotReachIt,
};

// Asks the other program for its window, for a few seconds at most: it may still be about to begin or to end. Main
// thread, before there is an application object.
SecondStart raiseTheFirst(InstanceLock& lock);
