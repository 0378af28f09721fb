#pragma once

#include "actions/URLOpener.h"
#include "catalog/records/VeskPackage.h"
#include "catalog/records/VeskRepository.h"

#include <QStringList>

// The URLs by which other package managers are asked to take over, in the order of trial. Values stand in them as they
// are, without escaping, so some may not be valid.
QStringList handOffURLs(const VeskPackage& package);
QStringList handOffURLs(const VeskRepository& repository);

// Opens the first valid URL that has a handler; nothing at all when none has.
void openFirstURL(const QStringList& urls, URLOpener& opener);
