#pragma once

#include "catalog/records/VeskRepository.h"

#include <vector>

// The four sources a first launch starts with, as new records each time, in their fixed order.
std::vector<VeskRepositoryPtr> makeDefaultSources();
