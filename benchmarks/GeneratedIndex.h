#pragma once

#include <QByteArray>

// An index as large distributions have it: stanzas of some 800 bytes, most of which the catalog does not keep, with
// shared maintainers and sections. The same count gives the same bytes on every machine.
QByteArray generatedIndex(int packageCount);

// A dpkg status file with every twentieth of these packages.
QByteArray generatedStatus(int packageCount);
