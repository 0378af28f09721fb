#pragma once

#include "ui/kit/paint/Image.h"

// The icon of the package with that number: a glossy tile with a simple white figure, drawn here.
kit::Image drawnIcon(int number);
