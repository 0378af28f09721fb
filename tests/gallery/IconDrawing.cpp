#include "tests/gallery/IconDrawing.h"

#include <QBuffer>
#include <QColor>
#include <QPainter>
#include <QPainterPath>

#include <array>
#include <cmath>

namespace {

constexpr int Side = 126;
constexpr double FullTurn = 6.283185307179586;

// A star of so many points, or, with an inner radius as large as the outer one, a polygon.
QPainterPath figure(int points, double inner)
{
    constexpr double Outer = 38;
    QPainterPath path;
    for (int step = 0; step < 2 * points; ++step) {
        const double radius = step % 2 == 0 ? Outer : inner;
        const double angle = FullTurn * step / (2 * points) - FullTurn / 4;
        const QPointF point(Side / 2.0 + radius * std::cos(angle), Side / 2.0 + radius * std::sin(angle));
        if (step == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    path.closeSubpath();
    return path;
}

void fillTile(QPainter& painter, int number)
{
    static const std::array<QColor, 7> colours{ QColor(62, 118, 178), QColor(196, 92, 62), QColor(78, 142, 96),
        QColor(132, 96, 168), QColor(206, 150, 52), QColor(58, 140, 150), QColor(104, 116, 132) };
    const QColor colour = colours[static_cast<std::size_t>(number) % colours.size()];
    QLinearGradient tile(0, 0, 0, Side);
    tile.setColorAt(0, colour.lighter(135));
    tile.setColorAt(1, colour.darker(130));
    painter.fillRect(QRectF(0, 0, Side, Side), tile);
    QPainterPath gloss;
    gloss.addEllipse(QRectF(-Side / 2.0, -Side, 2 * Side, 1.5 * Side));
    painter.fillPath(gloss, QColor(255, 255, 255, 40));
}

} // namespace

kit::Image drawnIcon(int number)
{
    QImage picture(Side, Side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    fillTile(painter, number);
    painter.fillPath(figure(3 + number % 5, 16 + number % 3 * 8), Qt::white);
    painter.end();
    QByteArray file;
    QBuffer buffer(&file);
    picture.save(&buffer, "PNG");
    return kit::Image::fromData(file, 3);
}
