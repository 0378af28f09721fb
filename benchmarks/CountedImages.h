#pragma once

#include <QByteArray>

// Pictures in a format of their own, which Qt decodes like any other: who decodes one is counted by its thread.
namespace CountedImages {

// One that differs from those of other numbers.
QByteArray encoded(int number);

int decodedOnMainThread();
int decodedElsewhere();

} // namespace CountedImages
