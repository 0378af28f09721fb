#include "ui/kit/paint/ImageItem.h"

#include <QBuffer>
#include <QQuickWindow>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

// A picture of that size, red on the left half and blue on the right one, that came from a file.
kit::Image redAndBlue(const QSize& size)
{
    QImage pixels(size, QImage::Format_RGB32);
    pixels.fill(Qt::red);
    for (int y = 0; y < size.height(); ++y)
        for (int x = size.width() / 2; x < size.width(); ++x)
            pixels.setPixel(x, y, qRgb(0, 0, 255));
    QByteArray file;
    QBuffer buffer(&file);
    pixels.save(&buffer, "PNG");
    return kit::Image::fromData(file, 1);
}

// An item of 40 by 40 points on white that is already seen when its looks change.
class ImageItemTest : public testing::Test
{
protected:
    ImageItemTest()
    {
        window.setColor(Qt::white);
        window.resize(40, 40);
        item = new kit::ImageItem(window.contentItem());
        item->setSize({ 40, 40 });
        window.show();
        window.grabWindow();
    }

    QColor colorAt(int x, int y) { return window.grabWindow().pixelColor(x, y); }

    QQuickWindow window;
    kit::ImageItem* item;
};

} // namespace

TEST_F(ImageItemTest, showsNothingWithoutAnImage)
{
    EXPECT_FALSE(item->isPresent());
    EXPECT_EQ(colorAt(20, 20), QColor(Qt::white));
}

TEST_F(ImageItemTest, stretchesItsImageOverAllOfIt)
{
    item->setImage(redAndBlue({ 8, 4 }));
    EXPECT_TRUE(item->isPresent());
    EXPECT_EQ(colorAt(2, 2), QColor(Qt::red));
    EXPECT_EQ(colorAt(37, 37), QColor(Qt::blue));
}

TEST_F(ImageItemTest, keepsTheProportionsOfAFittedImage)
{
    item->setImage(redAndBlue({ 80, 40 }));
    item->setMode(kit::ImageItem::AspectFit);
    EXPECT_EQ(item->mode(), kit::ImageItem::AspectFit);
    EXPECT_EQ(colorAt(5, 20), QColor(Qt::red));
    EXPECT_EQ(colorAt(35, 20), QColor(Qt::blue));
    EXPECT_EQ(colorAt(5, 5), QColor(Qt::white)) << "above the image";
}

TEST_F(ImageItemTest, roundsTheCorners)
{
    item->setImage(redAndBlue({ 40, 40 }));
    EXPECT_EQ(colorAt(0, 0), QColor(Qt::red));
    item->setRadius(15);
    EXPECT_EQ(item->radius(), 15);
    EXPECT_EQ(colorAt(0, 0), QColor(Qt::white));
    EXPECT_EQ(colorAt(2, 20), QColor(Qt::red));
}

TEST_F(ImageItemTest, drawsATemplateInItsTintAndAnotherImageInItsOwnColors)
{
    item->setTint(Qt::green);
    EXPECT_EQ(item->tint(), QColor(Qt::green));
    item->setImage(redAndBlue({ 40, 40 }));
    EXPECT_EQ(colorAt(2, 20), QColor(Qt::red));
    item->setImage(kit::Image::glyphNamed(QStringLiteral("xmark.circle.fill")));
    ASSERT_TRUE(item->isPresent());
    const auto hasColor = [this](const QColor& color) {
        const QImage picture = window.grabWindow();
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == color)
                    return true;
        return false;
    };
    EXPECT_TRUE(hasColor(Qt::green));
    item->setTint(Qt::magenta);
    EXPECT_TRUE(hasColor(Qt::magenta));
    EXPECT_FALSE(hasColor(Qt::green));
}

TEST_F(ImageItemTest, tellsOfAChangeOnceAndOfTheSameAgainNever)
{
    const kit::Image image = redAndBlue({ 8, 4 });
    QSignalSpy changed(item, &kit::ImageItem::imageChanged);
    for (int time = 0; time < 2; ++time) {
        item->setImage(image);
        item->setTint(Qt::green);
        item->setMode(kit::ImageItem::Tile);
        item->setRadius(3);
    }
    EXPECT_EQ(changed.size(), 4);
}
