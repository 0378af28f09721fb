#include "ui/kit/paint/Animations.h"

namespace kit {

namespace {

bool s_enabled = true;

} // namespace

int Animations::duration(int milliseconds)
{
    return s_enabled ? milliseconds : 0;
}

void Animations::setEnabled(bool enabled)
{
    s_enabled = enabled;
}

} // namespace kit
