#pragma once

#include <QByteArray>

// The indexes that are measured, as text.

// Debian's own where ./bench found one on the machine, else one of 60,000 generated packages in its shape.
QByteArray realIndex();
// The same packages ten times over, each with an identifier of its own.
QByteArray tenTimes(const QByteArray& index);
// Each tenth package.
QByteArray tenthOf(const QByteArray& index);
// The same packages, each with a name, an author, an icon and a depiction as sources made for Vesk have them.
QByteArray withEveryField(const QByteArray& index);

int packageCountOf(const QByteArray& index);
