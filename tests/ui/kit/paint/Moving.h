#pragma once

#include "ui/kit/paint/Animations.h"

// Everything moves as long as it lives. A base class stands before that of the window: what is drawn keeps the times it
// was made with.
class Moving
{
public:
    Moving() { kit::Animations::setEnabled(true); }
    ~Moving() { kit::Animations::setEnabled(false); }
};
