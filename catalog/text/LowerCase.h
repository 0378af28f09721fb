#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>

// Lower case as a search needs it: one letter at a time, whatever stands beside it.

inline char lowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool isAscii(std::string_view text);

// As UTF-8, in time in proportion to the length.
QByteArray lowered(QStringView text);
