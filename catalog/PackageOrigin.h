#pragma once

#include "TextPool.h"
#include "VeskRepository.h"

// What the packages of one index have in common: the pool their texts stand in, and the source they come from.
struct PackageOrigin
{
    TextPool texts;
    VeskRepositoryPtr repository;
};
