#include "ui/kit/paint/Image.h"

#include "tests/ui/kit/paint/DocumentPlugin.h"

#include <QBuffer>
#include <QImageReader>
#include <QLoggingCategory>
#include <QtEndian>

#include <gtest/gtest.h>

#include <array>

extern "C" QObject* qt_plugin_instance();
extern "C" QPluginMetaData qt_plugin_query_metadata_v2();

namespace {

QByteArray encoded(const QImage& image, const char* format = "PNG")
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes;
}

QByteArray png(int width, int height, QRgb color = qRgb(200, 10, 10))
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return encoded(image);
}

quint32 crcOf(const QByteArray& bytes)
{
    quint32 crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xedb88320U : 0U);
    }
    return ~crc;
}

// A PNG that says it is as large as told, with the pixels of a small one.
QByteArray pngDeclaring(quint32 width, quint32 height)
{
    QByteArray bytes = png(4, 4);
    qToBigEndian(width, bytes.data() + 16);
    qToBigEndian(height, bytes.data() + 20);
    qToBigEndian(crcOf(bytes.mid(12, 17)), bytes.data() + 29);
    return bytes;
}

} // namespace

TEST(Image, isNoneUntilItIsMade)
{
    const kit::Image none;
    EXPECT_TRUE(none.isNull());
    EXPECT_EQ(none.size(), QSizeF(0, 0));
    EXPECT_TRUE(none.pixels(2).isNull());
    EXPECT_EQ(none, kit::Image());
}

TEST(Image, isNoneForANameThatIsNotThere)
{
    EXPECT_TRUE(kit::Image::named(QStringLiteral("no such asset")).isNull());
    EXPECT_TRUE(kit::Image::named(QString()).isNull());
    EXPECT_TRUE(kit::Image::systemNamed(QStringLiteral("AppViewBack")).isNull());
    EXPECT_TRUE(kit::Image::glyphNamed(QStringLiteral("house.fill")).isNull());
}

TEST(Image, hasPixelsForScalesOneTwoAndThree)
{
    const kit::Image image = kit::Image::named(QStringLiteral("Homepage"));
    ASSERT_FALSE(image.isNull());
    for (const int scale : { 1, 2, 3 }) {
        const QImage pixels = image.pixels(scale);
        EXPECT_EQ(pixels.devicePixelRatio(), scale);
        EXPECT_EQ(QSizeF(pixels.size()), image.size() * scale);
    }
}

TEST(Image, takesTheNextLargerScaleForOneBetween)
{
    const kit::Image image = kit::Image::named(QStringLiteral("Homepage"));
    EXPECT_EQ(image.pixels(1.25).devicePixelRatio(), 2);
    EXPECT_EQ(image.pixels(2.5).devicePixelRatio(), 3);
    EXPECT_EQ(image.pixels(8).devicePixelRatio(), 3);
    EXPECT_EQ(image.pixels(0.5).devicePixelRatio(), 1);
    EXPECT_EQ(image.pixels(0).devicePixelRatio(), 1);
}

TEST(Image, measuresANameWithAScaleInItByItsOwnPixels)
{
    const kit::Image logo = kit::Image::named(QStringLiteral("vesklogo@2x"));
    ASSERT_FALSE(logo.isNull());
    EXPECT_EQ(logo.pixels(1).devicePixelRatio(), 1);
    EXPECT_EQ(QSizeF(logo.pixels(1).size()), logo.size());
    EXPECT_EQ(QSizeF(logo.pixels(3).size()), logo.size() * 3);
}

TEST(Image, hasSymbolsThatAreTemplates)
{
    const kit::Image symbol = kit::Image::systemNamed(QStringLiteral("house.fill"));
    EXPECT_EQ(symbol.renderingMode(), kit::Image::RenderingMode::Template);
    EXPECT_EQ(symbol.size(), QSizeF(24, 24));
    EXPECT_EQ(symbol.pixels(2).devicePixelRatio(), 2);
    EXPECT_EQ(kit::Image::named(QStringLiteral("Homepage")).renderingMode(), kit::Image::RenderingMode::Original);
}

TEST(Image, isLoadedOnceAndShared)
{
    const kit::Image first = kit::Image::named(QStringLiteral("Homepage"));
    EXPECT_EQ(first.identity(), kit::Image::named(QStringLiteral("Homepage")).identity());
    EXPECT_EQ(first, kit::Image::named(QStringLiteral("Homepage")));
    EXPECT_NE(first.identity(), kit::Image::named(QStringLiteral("AppViewBack")).identity());
}

TEST(Image, keepsItsCapInsets)
{
    const kit::Image image = kit::Image::named(QStringLiteral("Homepage"));
    const kit::Image resizable = image.resizable({ 1, 2, 3, 4 }, kit::Image::ResizingMode::Stretch);
    EXPECT_FALSE(image.isResizable());
    EXPECT_TRUE(resizable.isResizable());
    EXPECT_EQ(resizable.capInsets(), (kit::EdgeInsets{ 1, 2, 3, 4 }));
    EXPECT_EQ(resizable.identity(), image.identity());
    EXPECT_NE(resizable, image);
}

TEST(DecodedImage, measuresItsPixelsByTheScaleItIsFor)
{
    const kit::Image image = kit::Image::fromData(png(60, 30), 2);
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.size(), QSizeF(30, 15));
    EXPECT_EQ(image.pixels(1).pixel(5, 5), qRgb(200, 10, 10));
    EXPECT_EQ(image.pixels(1).format(), QImage::Format_ARGB32_Premultiplied);
}

TEST(DecodedImage, isNoneForBytesThatAreNoPicture)
{
    EXPECT_TRUE(kit::Image::fromData({}, 1).isNull());
    EXPECT_TRUE(kit::Image::fromData(QByteArray(1, '\0'), 1).isNull());
    EXPECT_TRUE(kit::Image::fromData(QByteArray(100'000, '\0'), 1).isNull());
    EXPECT_TRUE(kit::Image::fromData(QByteArrayLiteral("<html>not found</html>"), 1).isNull());
}

TEST(DecodedImage, neitherCrashesNorHangsOnAPictureCutAnywhere)
{
    QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false"));
    QImage noise(40, 40, QImage::Format_ARGB32);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x)
            noise.setPixel(x, y, qRgb(x * y % 251, x * 6, y * 6));
    for (const char* format : { "PNG", "JPG", "BMP" }) {
        const QByteArray whole = encoded(noise, format);
        ASSERT_FALSE(kit::Image::fromData(whole, 1).isNull());
        for (qsizetype length = 0; length < whole.size(); length += 13) {
            const kit::Image image = kit::Image::fromData(whole.left(length), 1);
            EXPECT_TRUE(image.isNull() || image.size() == QSizeF(40, 40)) << format << " cut at " << length;
        }
    }
}

TEST(DecodedImage, isNoneForAPngWithoutItsPixels)
{
    EXPECT_TRUE(kit::Image::fromData(png(40, 40).left(33), 1).isNull());
}

TEST(DecodedImage, refusesWhatSaysItIsEnormous)
{
    EXPECT_TRUE(kit::Image::fromData(pngDeclaring(100'000, 100'000), 1).isNull());
    EXPECT_TRUE(kit::Image::fromData(pngDeclaring(0x7fffffff, 1), 1).isNull());
    EXPECT_TRUE(kit::Image::fromData(pngDeclaring(16'384, 16'384), 1).isNull());
    EXPECT_TRUE(kit::Image::fromData(pngDeclaring(0, 0), 1).isNull());
}

TEST(DecodedImage, decodesNothingThatTakesMoreThan64MebibytesOnTheWay)
{
    const auto deepPng = [](int height) {
        QImage image(4'096, height, QImage::Format_RGBA64);
        image.fill(Qt::red);
        return encoded(image, "png");
    };
    EXPECT_FALSE(kit::Image::fromData(deepPng(2'048), 1).isNull());
    EXPECT_TRUE(kit::Image::fromData(deepPng(2'049), 1).isNull());
}

TEST(DecodedImage, decodesNothingOfMoreThan4096PixelsASide)
{
    EXPECT_FALSE(kit::Image::fromData(png(4'096, 1), 1).isNull());
    EXPECT_FALSE(kit::Image::fromData(png(1, 4'096), 1).isNull());
    EXPECT_TRUE(kit::Image::fromData(png(4'097, 1), 1).isNull());
    EXPECT_TRUE(kit::Image::fromData(png(1, 4'097), 1).isNull());
}

// What is kept of a picture that is gone must not be shown for another one.
TEST(DecodedImage, neverHasTheIdentityOfOneThatIsGone)
{
    quint64 gone = 0;
    for (int round = 0; round < 20; ++round) {
        const kit::Image image = kit::Image::fromData(png(10, 10), 1);
        EXPECT_NE(image.identity(), gone);
        gone = image.identity();
    }
}

TEST(DecodedImage, scalesDownALargePicture)
{
    const kit::Image image = kit::Image::fromData(png(2'000, 1'000), 1);
    EXPECT_EQ(image.size(), QSizeF(512, 256));
    EXPECT_EQ(kit::Image::fromData(png(100, 50), 1, 10).size(), QSizeF(10, 5));
    EXPECT_EQ(kit::Image::fromData(png(4'096, 2), 1).size(), QSizeF(512, 1));
    EXPECT_EQ(kit::Image::fromData(png(2, 4'096), 1).size(), QSizeF(1, 512));
}

TEST(DecodedImage, standsAsACameraSaysThatItWasHeld)
{
    QByteArray photograph = encoded(QImage(20, 10, QImage::Format_RGB32), "JPEG");
    // The camera's note, with one entry: it was held upright.
    photograph.insert(2,
        QByteArray::fromHex("ffe10022457869660000"
                            "49492a0008000000"
                            "0100120103000100000006000000"
                            "00000000"));
    EXPECT_EQ(kit::Image::fromData(photograph, 1).size(), QSizeF(10, 20));
}

TEST(DecodedImage, isNoneForAPictureThatIsADocument)
{
    qRegisterStaticPluginFunction({ qt_plugin_instance, qt_plugin_query_metadata_v2 });
    const QByteArray drawing = QByteArrayLiteral(
        "<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\" width=\"10\" height=\"10\"><rect "
        "width=\"10\" height=\"10\"/></svg>");
    EXPECT_FALSE(QImage::fromData(drawing).isNull());
    EXPECT_TRUE(kit::Image::fromData(drawing, 1).isNull());
    const QByteArray page = QByteArrayLiteral("%PDF-1.7\n");
    EXPECT_FALSE(QImage::fromData(page).isNull());
    EXPECT_TRUE(kit::Image::fromData(page, 1).isNull());
}

TEST(DecodedImage, takesTheFirstFrameOfAGifAndRefusesAnEnormousOne)
{
    // One white pixel.
    const QByteArray small
        = QByteArray::fromHex("47494638396101000100800100ffffff0000002c00000000010001000002024401003b");
    EXPECT_EQ(kit::Image::fromData(small, 1).size(), QSizeF(1, 1));
    QByteArray enormous = small;
    for (const int place : { 6, 24 }) {
        qToLittleEndian<quint16>(0xffff, enormous.data() + place + (place == 24 ? 4 : 0));
        qToLittleEndian<quint16>(0xffff, enormous.data() + place + (place == 24 ? 6 : 2));
    }
    EXPECT_TRUE(kit::Image::fromData(enormous, 1).isNull());
}
