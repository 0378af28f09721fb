#pragma once

#include <QString>

// "left  •  right", the form of a row's detail text and of some headers.
inline QString joinedWithBullet(const QString& left, const QString& right)
{
    return left + QStringLiteral("  \u2022  ") + right;
}
