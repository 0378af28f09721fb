#include "catalog/index/IndexLimits.h"

#include <QFile>

#include <algorithm>
#include <limits>

IndexLimits IndexLimits::within(std::size_t freeMemory) const
{
    IndexLimits limits = *this;
    limits.textSize = std::min(limits.textSize, freeMemory / 4);
    limits.madeSize = std::min(limits.madeSize, freeMemory / 4);
    return limits;
}

std::size_t freeMemory()
{
    QFile file(QStringLiteral("/proc/meminfo"));
    return freeMemoryIn(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
}

std::size_t freeMemoryIn(const QByteArray& meminfo)
{
    constexpr auto unknown = std::numeric_limits<std::size_t>::max();
    const QByteArray name = "\nMemAvailable:";
    const qsizetype at = ('\n' + meminfo).indexOf(name);
    if (at < 0)
        return unknown;
    const QByteArray line = meminfo.mid(at + name.size() - 1).split('\n').first().trimmed();
    bool isNumber = false;
    const qulonglong kibibytes = line.endsWith("kB") ? line.chopped(2).trimmed().toULongLong(&isNumber) : 0;
    return isNumber && kibibytes <= unknown / 1024 ? kibibytes * 1024 : unknown;
}
