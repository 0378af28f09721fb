#pragma once

#include "catalog/records/VeskRepository.h"
#include "catalog/text/TextPool.h"

// What the packages of one block have in common: the pool their texts stand in, and the source they come from.
struct PackageOrigin
{
    TextPool texts;
    VeskRepositoryPtr repository;
};
