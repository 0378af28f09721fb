#include "ui/kit/paint/Hairline.h"

#include <QQuickWindow>

#include <gtest/gtest.h>

namespace {

// A red line on white, so far from the window's top, in device pixels and with their ratio, which a picture of a window
// does not tell.
QImage lineAt(double y)
{
    QQuickWindow window;
    window.setColor(Qt::white);
    window.resize(60, 40);
    auto* const line = new kit::Hairline(window.contentItem());
    line->setProperty("color", QColor(Qt::red));
    line->setWidth(50);
    line->setY(y);
    window.show();
    QImage picture = window.grabWindow();
    picture.setDevicePixelRatio(window.effectiveDevicePixelRatio());
    return picture;
}

int redPixelsInColumn(const QImage& picture, int x)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        count += picture.pixel(x, y) == qRgb(255, 0, 0) ? 1 : 0;
    return count;
}

} // namespace

TEST(Hairline, isOneDevicePixelHigh)
{
    const QImage picture = lineAt(10);
    EXPECT_EQ(picture.pixel(20, qRound(10 * picture.devicePixelRatio())), qRgb(255, 0, 0));
    EXPECT_EQ(redPixelsInColumn(picture, 20), 1);
}

TEST(Hairline, staysOneWholePixelBesideARowThatEndsBetweenTwo)
{
    EXPECT_EQ(redPixelsInColumn(lineAt(10.01), 20), 1);
    EXPECT_EQ(redPixelsInColumn(lineAt(10.4), 20), 1);
}

TEST(Hairline, showsTheColourThatItWasGivenWhileItWasHidden)
{
    QQuickWindow window;
    window.setColor(Qt::white);
    window.resize(60, 40);
    auto* const line = new kit::Hairline(window.contentItem());
    line->setProperty("color", QColor(Qt::blue));
    line->setSize({ 50, line->height() });
    window.show();
    window.grabWindow();
    line->setVisible(false);
    line->setProperty("color", QColor(Qt::red));
    window.grabWindow();
    line->setVisible(true);
    EXPECT_EQ(redPixelsInColumn(window.grabWindow(), 20), 1);
}

TEST(Hairline, takesItsHeightFromTheWindowThatItIsPutInto)
{
    kit::Hairline line;
    EXPECT_EQ(line.height(), 0);
    QQuickWindow window;
    line.setParentItem(window.contentItem());
    EXPECT_EQ(line.height(), 1 / window.effectiveDevicePixelRatio());
}
