#pragma once

#include <QString>

// How much larger than usual the desktop is told to show texts, as GNOME and the desktops and phones around it keep it;
// 1 where nobody does. Only under Wayland: under X11 the desktop puts the factor into the resolution of fonts, by which
// Qt enlarges the whole window already.
//
// The directory holds compiled settings schemas instead of the system's.
double desktopTextScale(const QString& platformName, const QString& schemaDirectory = {});
