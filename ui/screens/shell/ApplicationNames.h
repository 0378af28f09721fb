#pragma once

#include <QString>

// What the program is called on the session bus, as https://specifications.freedesktop.org/desktop-entry-spec has it
// for applications that the bus can start.
namespace ApplicationNames {

// The desktop's name for the program. When several run beside each other, each on a settings file of its own, the one
// on the user's usual file owns this name.
QString service();
// The name of whoever runs on this settings file, an absolute path.
QString serviceOf(const QString& settingsFile);
QString objectPath();
QString interface();

} // namespace ApplicationNames
