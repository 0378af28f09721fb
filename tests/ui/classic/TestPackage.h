#pragma once

#include "catalog/records/VeskPackage.h"

// A package with every text that a row can show.
inline VeskPackagePtr makePackage(const QString& name)
{
    auto package = std::make_shared<VeskPackage>();
    package->setPackageID(QStringLiteral("org.example.package"));
    package->setName(name);
    package->setAuthor(QStringLiteral("Ada"));
    package->setVersion(QStringLiteral("1.0"));
    package->setRepository(
        VeskRepository::repositoryWithURLString(QStringLiteral("http://127.0.0.1/"), QStringLiteral("Source")));
    return package;
}
