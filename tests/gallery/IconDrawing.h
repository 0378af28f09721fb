#pragma once

#include "Image.h"

// The icon of the package with that number: a glossy tile with a simple white figure, drawn here.
Image drawnIcon(int number);
