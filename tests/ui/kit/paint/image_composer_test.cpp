#include "ui/kit/paint/ImageComposer.h"

#include <QBuffer>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Mode = kit::ImageLook::Mode;

kit::Image imageOf(const QImage& pixels, double scale = 1)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    pixels.save(&buffer, "PNG");
    return kit::Image::fromData(bytes, scale);
}

// A green picture with a red left upper corner, a blue right lower one, each so many pixels wide and high.
QImage cornered(int side, int corner)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::green);
    for (int y = 0; y < corner; ++y)
        for (int x = 0; x < corner; ++x) {
            image.setPixelColor(x, y, Qt::red);
            image.setPixelColor(side - 1 - x, side - 1 - y, Qt::blue);
        }
    return image;
}

QImage checkered()
{
    QImage image(2, 2, QImage::Format_ARGB32);
    image.fill(Qt::white);
    image.setPixelColor(0, 0, Qt::black);
    image.setPixelColor(1, 1, Qt::black);
    return image;
}

} // namespace

TEST(ImageComposer, keepsTheCornersOfAStretchedPicture)
{
    const kit::Image image = imageOf(cornered(20, 6)).resizable({ 6, 6, 6, 6 }, kit::Image::ResizingMode::Stretch);
    const QImage picture = kit::ImageComposer::composed({ image, { 200, 100 }, 1, Mode::ScaleToFill, {}, 0 });
    ASSERT_EQ(picture.size(), QSize(200, 100));
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(5, 5), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(6, 6), QColor(Qt::green));
    EXPECT_EQ(picture.pixelColor(100, 50), QColor(Qt::green));
    EXPECT_EQ(picture.pixelColor(100, 0), QColor(Qt::green));
    EXPECT_EQ(picture.pixelColor(194, 94), QColor(Qt::blue));
    EXPECT_EQ(picture.pixelColor(193, 93), QColor(Qt::green));
    EXPECT_EQ(picture.pixelColor(199, 99), QColor(Qt::blue));
}

TEST(ImageComposer, measuresCapsInPointsAtEveryScale)
{
    const kit::Image image = imageOf(cornered(40, 12), 2).resizable({ 6, 6, 6, 6 }, kit::Image::ResizingMode::Stretch);
    const QImage twice = kit::ImageComposer::composed({ image, { 200, 100 }, 2, Mode::ScaleToFill, {}, 0 });
    EXPECT_EQ(twice.pixelColor(11, 11), QColor(Qt::red));
    EXPECT_EQ(twice.pixelColor(12, 12), QColor(Qt::green));
    EXPECT_EQ(twice.pixelColor(188, 88), QColor(Qt::blue));
    EXPECT_EQ(twice.pixelColor(187, 87), QColor(Qt::green));
    const QImage once = kit::ImageComposer::composed({ image, { 100, 50 }, 1, Mode::ScaleToFill, {}, 0 });
    EXPECT_EQ(once.pixelColor(4, 4), QColor(Qt::red));
    EXPECT_EQ(once.pixelColor(8, 8), QColor(Qt::green));
}

TEST(ImageComposer, staysWithinAPictureSmallerThanItsCaps)
{
    const kit::Image image = imageOf(cornered(20, 6)).resizable({ 6, 6, 6, 6 }, kit::Image::ResizingMode::Stretch);
    const QImage picture = kit::ImageComposer::composed({ image, { 8, 8 }, 1, Mode::ScaleToFill, {}, 0 });
    ASSERT_EQ(picture.size(), QSize(8, 8));
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(7, 7), QColor(Qt::blue));
    EXPECT_EQ(picture.pixelColor(7, 0), QColor(Qt::green));
    EXPECT_EQ(picture.pixelColor(3, 3), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(4, 4), QColor(Qt::blue));
}

TEST(ImageComposer, stretchesTheMiddleOnceInsteadOfRepeatingIt)
{
    QImage pixels(4, 4, QImage::Format_ARGB32);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            pixels.setPixelColor(x, y, x < 2 ? Qt::red : Qt::blue);
    const kit::Image image = imageOf(pixels).resizable({ 1, 1, 1, 1 }, kit::Image::ResizingMode::Stretch);
    const QImage picture = kit::ImageComposer::composed({ image, { 42, 12 }, 1, Mode::ScaleToFill, {}, 0 });
    // Between red and blue it may be smooth.
    for (const int y : { 0, 6, 11 })
        for (int x = 0; x < 10; ++x) {
            EXPECT_EQ(picture.pixelColor(x, y), QColor(Qt::red)) << x << ' ' << y;
            EXPECT_EQ(picture.pixelColor(41 - x, y), QColor(Qt::blue)) << x << ' ' << y;
        }
}

TEST(ImageComposer, stretchesTheFirstCapOverTheMiddleWhereTheCapsMeet)
{
    QImage pixels(12, 1, QImage::Format_ARGB32);
    for (int x = 0; x < 12; ++x)
        pixels.setPixelColor(x, 0, x < 6 ? Qt::red : Qt::blue);
    const kit::Image image = imageOf(pixels).resizable({ 0, 6, 0, 6 }, kit::Image::ResizingMode::Stretch);
    const QImage picture = kit::ImageComposer::composed({ image, { 60, 4 }, 1, Mode::ScaleToFill, {}, 0 });
    for (int x = 0; x < 60; ++x)
        EXPECT_EQ(picture.pixelColor(x, 2), QColor(x < 54 ? Qt::red : Qt::blue)) << x;
}

TEST(ImageComposer, fillsTheMiddleWithTheOnePixelBesideItWhereTheCapsMeet)
{
    constexpr int Side = 12;
    QImage pixels(Side, 1, QImage::Format_ARGB32);
    for (int x = 0; x < Side; ++x)
        pixels.setPixelColor(x, 0, QColor(20 * x, 0, 0));
    for (const int before : { 0, 6 })
        for (const auto mode : { kit::Image::ResizingMode::Stretch, kit::Image::ResizingMode::Tile }) {
            const int after = Side - before;
            const kit::Image image = imageOf(pixels).resizable({ 0, double(before), 0, double(after) }, mode);
            const QImage picture = kit::ImageComposer::composed({ image, { 60, 1 }, 1, Mode::ScaleToFill, {}, 0 });
            for (int x = before; x < 60 - after; ++x)
                EXPECT_EQ(picture.pixelColor(x, 0), QColor(20 * std::max(0, before - 1), 0, 0)) << before << ' ' << x;
        }
}

TEST(ImageComposer, repeatsTheMiddleAndTheEdgesOfATiledPictureBetweenItsCaps)
{
    QImage pixels(6, 6, QImage::Format_ARGB32);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 6; ++x)
            pixels.setPixelColor(x, y, QColor(40 * x, 40 * y, 7));
    const auto sourceOf = [](int place, int before, int after, int length) {
        const int period = 6 - before - after;
        return place < before         ? place
            : place >= length - after ? 6 - (length - place)
                                      : before + (place - before) % period;
    };
    for (const double scale : { 1, 2 }) {
        const kit::Image image
            = imageOf(pixels, scale)
                  .resizable({ 2 / scale, 1 / scale, 1 / scale, 2 / scale }, kit::Image::ResizingMode::Tile);
        const QImage picture = kit::ImageComposer::composed({ image, { 15, 16 }, scale, Mode::ScaleToFill, {}, 0 });
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 15; ++x)
                ASSERT_EQ(picture.pixelColor(x, y), QColor(40 * sourceOf(x, 1, 2, 15), 40 * sourceOf(y, 2, 1, 16), 7))
                    << scale << ' ' << x << ' ' << y;
    }
}

TEST(ImageComposer, fillsATiledPictureAtAFractionalScaleAndWithCapsThatMeet)
{
    QImage flat(8, 8, QImage::Format_ARGB32);
    flat.fill(QColor(10, 120, 200));
    for (const double scale : { 1.0, 1.25, 1.5, 2.5 })
        for (const double cap : { 0.0, 3.0, 4.0, 9.0 }) {
            const kit::Image image = imageOf(flat).resizable({ cap, cap, cap, cap }, kit::Image::ResizingMode::Tile);
            const QImage picture = kit::ImageComposer::composed({ image, { 97, 53 }, scale, Mode::ScaleToFill, {}, 0 });
            for (int y = 0; y < 53; ++y)
                for (int x = 0; x < 97; ++x)
                    ASSERT_EQ(picture.pixelColor(x, y), QColor(10, 120, 200))
                        << scale << ' ' << cap << ' ' << x << ' ' << y;
        }
}

TEST(ImageComposer, makesTheTilesOfAPictureAsSmallAsTheScreensPixelsAre)
{
    // One pixel of four is black, and four make one of the screen: three quarters as light as white.
    constexpr int Lightness = 191;
    QImage pixels(10, 10, QImage::Format_ARGB32);
    pixels.fill(Qt::white);
    for (int y = 0; y < 10; y += 2)
        for (int x = 0; x < 10; x += 2)
            pixels.setPixelColor(x, y, Qt::black);
    const kit::Image capped = imageOf(pixels, 2).resizable({ 2, 2, 2, 2 }, kit::Image::ResizingMode::Tile);
    const QImage between = kit::ImageComposer::composed({ capped, { 16, 16 }, 1, Mode::ScaleToFill, {}, 0 });
    const kit::Image whole = imageOf(pixels.copy(0, 0, 2, 2), 2);
    const QImage everywhere = kit::ImageComposer::composed({ whole, { 16, 16 }, 1, Mode::Tile, {}, 0 });
    for (int y = 2; y < 14; ++y)
        for (int x = 2; x < 14; ++x) {
            EXPECT_NEAR(between.pixelColor(x, y).lightness(), Lightness, 3) << x << ' ' << y;
            EXPECT_NEAR(everywhere.pixelColor(x, y).lightness(), Lightness, 3) << x << ' ' << y;
        }
}

TEST(ImageComposer, stretchesAPictureWithoutCapsOverAll)
{
    QImage pixels(1, 1, QImage::Format_ARGB32);
    pixels.fill(Qt::red);
    const QImage picture = kit::ImageComposer::composed({ imageOf(pixels), { 30, 20 }, 1, Mode::ScaleToFill, {}, 0 });
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(29, 19), QColor(Qt::red));
}

TEST(ImageComposer, fitsAPictureIntoTheMiddle)
{
    QImage pixels(10, 20, QImage::Format_ARGB32);
    pixels.fill(Qt::red);
    const QImage picture = kit::ImageComposer::composed({ imageOf(pixels), { 100, 100 }, 1, Mode::AspectFit, {}, 0 });
    EXPECT_EQ(picture.pixelColor(50, 50), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(50, 2), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(20, 50).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(80, 50).alpha(), 0);
}

TEST(ImageComposer, tilesPixelForPixelAtItsOwnScale)
{
    for (const double scale : { 1, 2, 3 }) {
        const kit::ImageLook look{ imageOf(checkered(), scale), { 31, 17 }, scale, Mode::Tile, {}, 0 };
        const QImage picture = kit::ImageComposer::composed(look);
        for (int y = 0; y < 17; ++y)
            for (int x = 0; x < 31; ++x)
                ASSERT_EQ(picture.pixelColor(x, y), QColor((x + y) % 2 == 0 ? Qt::black : Qt::white))
                    << scale << ' ' << x << ' ' << y;
    }
}

TEST(ImageComposer, tilesWithoutSeamsAtAFractionalScale)
{
    QImage flat(8, 8, QImage::Format_ARGB32);
    flat.fill(QColor(10, 120, 200));
    for (const double scale : { 1.25, 1.5, 1.75, 2.5 }) {
        const QImage picture = kit::ImageComposer::composed({ imageOf(flat), { 97, 53 }, scale, Mode::Tile, {}, 0 });
        for (int y = 0; y < 53; ++y)
            for (int x = 0; x < 97; ++x)
                ASSERT_EQ(picture.pixelColor(x, y), QColor(10, 120, 200)) << scale << ' ' << x << ' ' << y;
    }
}

TEST(ImageComposer, tilesAPictureOfOnePixelAtATinyScale)
{
    QImage pixel(1, 1, QImage::Format_ARGB32);
    pixel.fill(Qt::red);
    const QImage picture = kit::ImageComposer::composed({ imageOf(pixel, 3), { 10, 10 }, 1, Mode::Tile, {}, 0 });
    EXPECT_EQ(picture.pixelColor(9, 9), QColor(Qt::red));
}

TEST(ImageComposer, drawsATemplateInItsTintOnly)
{
    const kit::Image symbol = kit::Image::systemNamed(QStringLiteral("house.fill"));
    const QImage picture = kit::ImageComposer::composed({ symbol, { 48, 48 }, 2, Mode::AspectFit, QColor(Qt::red), 0 });
    int inked = 0;
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 48; ++x) {
            const QColor color = picture.pixelColor(x, y);
            if (color.alpha() == 255) {
                ++inked;
                ASSERT_EQ(color, QColor(Qt::red));
            }
        }
    EXPECT_GT(inked, 100);
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
}

TEST(ImageComposer, cutsRoundCornersInPoints)
{
    QImage flat(4, 4, QImage::Format_ARGB32);
    flat.fill(Qt::red);
    const QImage picture = kit::ImageComposer::composed({ imageOf(flat), { 80, 80 }, 2, Mode::ScaleToFill, {}, 8 });
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(79, 79).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(3, 3).alpha(), 0);
    EXPECT_EQ(picture.pixelColor(8, 8).alpha(), 255);
    EXPECT_EQ(picture.pixelColor(40, 0).alpha(), 255);
    int between = 0;
    for (int x = 0; x < 16; ++x)
        between += picture.pixelColor(x, 5).alpha() % 255 != 0 ? 1 : 0;
    EXPECT_GT(between, 0) << "a corner without steps";
    const QImage small = kit::ImageComposer::composed({ imageOf(flat), { 80, 80 }, 3, Mode::ScaleToFill, {}, 1 });
    EXPECT_LT(small.pixelColor(0, 0).alpha(), 128);
    EXPECT_EQ(small.pixelColor(3, 3).alpha(), 255);
}

TEST(ImageComposer, givesTheSamePictureForTheSameLook)
{
    const kit::Image image = imageOf(cornered(20, 6));
    const kit::ImageLook look{ image, { 33, 44 }, 1, Mode::ScaleToFill, {}, 0 };
    EXPECT_EQ(kit::ImageComposer::composed(look).cacheKey(), kit::ImageComposer::composed(look).cacheKey());
    kit::ImageLook rounder = look;
    rounder.radius = 5;
    EXPECT_NE(kit::ImageComposer::composed(look), kit::ImageComposer::composed(rounder));
}

TEST(ImageComposer, keepsNoPictureAliveThatItHasComposedFrom)
{
    QImage pixels;
    {
        const kit::Image image = imageOf(cornered(20, 6));
        kit::ImageComposer::composed({ image, { 7, 7 }, 1, Mode::ScaleToFill, {}, 0 });
        pixels = image.pixels(1);
        EXPECT_FALSE(pixels.isDetached());
    }
    EXPECT_TRUE(pixels.isDetached());
}

TEST(ImageComposer, dropsWhatWasNotAskedForWhileManyOtherPicturesWereComposed)
{
    const kit::Image image = imageOf(cornered(20, 6));
    const kit::ImageLook look{ image, { 40, 40 }, 1, Mode::ScaleToFill, {}, 0 };
    const auto keyNow = [&] { return kit::ImageComposer::composed(look).cacheKey(); };
    const qint64 before = keyNow();
    // Of 4 MiB each.
    const auto composeOthers = [&](int from, int to) {
        for (int radius = from; radius < to; ++radius)
            kit::ImageComposer::composed({ image, { 1024, 1024 }, 1, Mode::ScaleToFill, {}, double(radius) });
    };
    composeOthers(1, 3);
    EXPECT_EQ(keyNow(), before);
    composeOthers(3, 19);
    EXPECT_NE(keyNow(), before);
}

TEST(ImageComposer, averagesThePixelsOfAPictureThatIsMadeSmaller)
{
    // Bars of one pixel, black and white: picking some of them would give all black or all white.
    QImage bars(120, 120, QImage::Format_ARGB32);
    for (int y = 0; y < 120; ++y)
        for (int x = 0; x < 120; ++x)
            bars.setPixelColor(x, y, x % 2 == 0 ? Qt::black : Qt::white);
    for (const Mode mode : { Mode::ScaleToFill, Mode::AspectFit }) {
        const QImage picture = kit::ImageComposer::composed({ imageOf(bars), { 30, 30 }, 1, mode, {}, 0 });
        EXPECT_NEAR(picture.pixelColor(15, 15).lightness(), 128, 3);
        EXPECT_NEAR(picture.pixelColor(16, 15).lightness(), 128, 3);
    }
}

TEST(ImageComposer, averagesThePixelsOfAPictureThatIsMadeSmallerInOneDirectionOnly)
{
    // One of four is black, and four make one: three quarters as light as white.
    QImage bars(120, 120, QImage::Format_ARGB32);
    for (int y = 0; y < 120; ++y)
        for (int x = 0; x < 120; ++x)
            bars.setPixelColor(x, y, x % 4 == 0 ? Qt::black : Qt::white);
    const QImage taller = kit::ImageComposer::composed({ imageOf(bars), { 30, 240 }, 1, Mode::ScaleToFill, {}, 0 });
    EXPECT_NEAR(taller.pixelColor(15, 120).lightness(), 191, 3);
    const kit::Image turned = imageOf(bars.transformed(QTransform().rotate(90)));
    const QImage wider = kit::ImageComposer::composed({ turned, { 240, 30 }, 1, Mode::ScaleToFill, {}, 0 });
    EXPECT_NEAR(wider.pixelColor(120, 15).lightness(), 191, 3);
}
