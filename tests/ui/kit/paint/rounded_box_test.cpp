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

TEST(RoundedBox, goesFromItsUpperToItsLowerColour)
{
    QQuickWindow window;
    window.resize(60, 40);
    auto* const box = new kit::RoundedBox(window.contentItem());
    box->setProperty("upper", QColor(Qt::black));
    box->setProperty("lower", QColor(200, 200, 200));
    box->setProperty("edge", QColor(Qt::transparent));
    box->setSize({ 60, 40 });
    window.show();
    const QImage picture = window.grabWindow();
    for (int y = 0; y < 40; ++y)
        for (const int x : { 0, 30, 59 })
            EXPECT_NEAR(qRed(picture.pixel(x, y)), (y + 0.5) * 5, 2) << x << ' ' << y;
}

TEST(RoundedBox, hasAFillWhoseCornersRunAlongThoseOfItsEdge)
{
    // Beyond a radius of 10 and an edge of 2, the fill's corner has a radius of 8 around the same middle.
    const QImage picture = boxOfSize({ 50, 30 });
    EXPECT_GT(qRed(picture.pixel(4, 4)), 150);
    EXPECT_LT(qBlue(picture.pixel(4, 4)), 105);
    EXPECT_EQ(picture.pixel(5, 5), qRgb(255, 0, 0));
    EXPECT_LT(qRed(picture.pixel(3, 3)), 50);
}

TEST(RoundedBox, isPaintedAnewInAnotherColour)
{
    QQuickWindow window;
    window.resize(60, 40);
    auto* const box = new kit::RoundedBox(window.contentItem());
    box->setSize({ 60, 40 });
    window.show();
    window.grabWindow();
    box->setProperty("upper", QColor(Qt::red));
    box->setProperty("lower", QColor(Qt::red));
    EXPECT_EQ(window.grabWindow().pixel(30, 20), qRgb(255, 0, 0));
}

namespace {

class PaintedBox : public kit::RoundedBox
{
public:
    using kit::RoundedBox::painted;
};

} // namespace

TEST(RoundedBox, hasAnEdgeAndARadiusOfSoManyPointsAtEveryScale)
{
    PaintedBox box;
    box.setProperty("upper", QColor(Qt::red));
    box.setProperty("lower", QColor(Qt::red));
    box.setProperty("edge", QColor(Qt::blue));
    box.setProperty("edgeWidth", 2);
    box.setProperty("radius", 10);
    const QImage picture = box.painted({ 150, 90 }, 3);
    EXPECT_EQ(picture.pixel(75, 5), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(75, 6), qRgb(255, 0, 0));
    // The diagonal meets a corner of 30 pixels after 30 (1 - 1 / sqrt 2) = 8.8 of them.
    EXPECT_EQ(qAlpha(picture.pixel(7, 7)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(10, 10)), 255);
}
