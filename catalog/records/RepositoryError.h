#pragma once

#include <QString>

// Why a source was not added.
struct RepositoryError
{
    QString domain;
    int code = 0;
    QString localizedDescription;

    // The text given is no URL with a scheme.
    static RepositoryError invalidURL() { return { QStringLiteral("VeskApp"), 1, QStringLiteral("Invalid URL") }; }
};
