#pragma once

#include "catalog/records/VeskPackage.h"

#include <QString>

#include <vector>

// A text that somebody may send to upset whoever draws it.
struct HostileText
{
    // In a word of plain letters.
    QString kind;
    QString text;
};

const std::vector<HostileText>& hostileTexts();
// A package of each kind, all of whose texts are of that kind; its identifier begins with the kind's word. Every other
// one is installed.
std::vector<VeskPackagePtr> hostilePackages(const VeskRepositoryPtr& repository);
