#include "tests/gallery/SmallPng.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <zlib.h>

#include <array>
#include <cstdlib>

namespace {

constexpr int BytesPerPixel = 3;

enum class Filter : char { None, Left, Above, Average, Paeth };
constexpr std::array<Filter, 5> filters{ Filter::None, Filter::Left, Filter::Above, Filter::Average, Filter::Paeth };

QByteArray bigEndian(quint32 number)
{
    const quint32 stored = qToBigEndian(number);
    return { reinterpret_cast<const char*>(&stored), sizeof stored };
}

QByteArray chunk(const QByteArray& type, const QByteArray& data)
{
    const QByteArray body = type + data;
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(body.constData()), static_cast<uInt>(body.size()));
    return bigEndian(static_cast<quint32>(data.size())) + body + bigEndian(static_cast<quint32>(sum));
}

// Whichever neighbour is nearest to where the three point.
int paeth(int left, int above, int aboveLeft)
{
    const int toLeft = std::abs(above - aboveLeft);
    const int toAbove = std::abs(left - aboveLeft);
    const int toAboveLeft = std::abs(left + above - 2 * aboveLeft);
    if (toLeft <= toAbove && toLeft <= toAboveLeft)
        return left;
    return toAbove <= toAboveLeft ? above : aboveLeft;
}

int predicted(Filter filter, int left, int above, int aboveLeft)
{
    switch (filter) {
    case Filter::Left:
        return left;
    case Filter::Above:
        return above;
    case Filter::Average:
        return (left + above) / 2;
    case Filter::Paeth:
        return paeth(left, above, aboveLeft);
    case Filter::None:
        break;
    }
    return 0;
}

QByteArray compressed(const QImage& picture, Filter filter)
{
    const qsizetype length = qsizetype(picture.width()) * BytesPerPixel;
    QByteArray rows;
    rows.reserve((length + 1) * picture.height());
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* const row = picture.constScanLine(y);
        const uchar* const rowAbove = y > 0 ? picture.constScanLine(y - 1) : nullptr;
        rows += static_cast<char>(filter);
        for (qsizetype x = 0; x < length; ++x) {
            const bool isFirst = x < BytesPerPixel;
            const int guess = predicted(filter, isFirst ? 0 : row[x - BytesPerPixel], rowAbove ? rowAbove[x] : 0,
                isFirst || !rowAbove ? 0 : rowAbove[x - BytesPerPixel]);
            rows += static_cast<char>(row[x] - guess);
        }
    }
    constexpr int Strongest = 9;
    constexpr qsizetype LengthBefore = 4; // not part of the zlib stream
    return qCompress(rows, Strongest).mid(LengthBefore);
}

} // namespace

bool saveSmallPng(const QImage& picture, const QString& path)
{
    QByteArray smallest;
    for (const Filter filter : filters) {
        const QByteArray data = compressed(picture, filter);
        if (smallest.isEmpty() || data.size() < smallest.size())
            smallest = data;
    }
    const QByteArray eightBitColours("\x08\x02\x00\x00\x00", 5);
    const QByteArray header = bigEndian(static_cast<quint32>(picture.width()))
        + bigEndian(static_cast<quint32>(picture.height())) + eightBitColours;
    const QByteArray png
        = "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) + chunk("IDAT", smallest) + chunk("IEND", QByteArray());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(png) == png.size();
}
