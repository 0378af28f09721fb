#include "ui/kit/paint/RoundedBox.h"

#include <QQuickWindow>

#include <gtest/gtest.h>

namespace {

constexpr QRgb White = qRgb(255, 255, 255);

// A box with a blue edge of two points on white, grabbed.
QImage boxOfSize(const QSizeF& size, const QColor& fill = Qt::red)
{
    QQuickWindow window;
    window.setColor(Qt::white);
    window.resize(60, 40);
    auto* const box = new kit::RoundedBox(window.contentItem());
    box->setProperty("upper", fill);
    box->setProperty("lower", fill);
    box->setProperty("edge", QColor(Qt::blue));
    box->setProperty("edgeWidth", 2);
    box->setProperty("radius", 10);
    box->setSize(size);
    window.show();
    return window.grabWindow();
}

} // namespace

TEST(RoundedBox, hasAnEdgeAllAroundItsFill)
{
    const QImage picture = boxOfSize({ 50, 30 });
    EXPECT_EQ(picture.pixel(25, 0), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(25, 1), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(25, 2), qRgb(255, 0, 0));
    EXPECT_EQ(picture.pixel(25, 29), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(0, 15), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(49, 15), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(50, 15), White);
}

TEST(RoundedBox, leavesItsCornersOutSmoothly)
{
    const QImage picture = boxOfSize({ 50, 30 });
    EXPECT_EQ(picture.pixel(0, 0), White);
    int between = 0;
    for (int x = 0; x < 10; ++x) {
        const QRgb pixel = picture.pixel(x, 1);
        between += pixel != White && pixel != qRgb(0, 0, 255) ? 1 : 0;
    }
    EXPECT_GT(between, 0);
}

TEST(RoundedBox, drawsNothingWithoutASize)
{
    EXPECT_EQ(boxOfSize({ 0, 30 }).pixel(0, 15), White);
}

TEST(RoundedBox, isStretchedToASizeThatIsTooLargeToBePainted)
{
    EXPECT_EQ(boxOfSize({ 20'000, 30 }).pixel(40, 15), qRgb(255, 0, 0));
}

TEST(RoundedBox, showsWhatIsBehindItThroughItsFillAndNotItsEdge)
{
    const QImage picture = boxOfSize({ 50, 30 }, QColor(255, 0, 0, 51));
    EXPECT_EQ(picture.pixel(25, 1), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(25, 15), qRgb(255, 204, 204)) << "a fifth of red on white";
    EXPECT_EQ(boxOfSize({ 50, 30 }, Qt::transparent).pixel(25, 15), White);
}
