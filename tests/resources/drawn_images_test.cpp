// Every image the interface asks for by name is there, at three scales, in the size the layout counts on.

#include "VeskResources.h"

#include <QImage>
#include <QSize>

#include <gtest/gtest.h>

namespace {

struct DrawnImage
{
    const char* path;
    QSize points;
};

QImage picture(const DrawnImage& image, int scale)
{
    initialiseResources();
    const QString suffix = scale > 1 ? QStringLiteral("@%1x").arg(scale) : QString();
    return QImage(QStringLiteral(":/%1%2.png").arg(QLatin1String(image.path), suffix));
}

bool isOpaque(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() != 255)
                return false;
    return true;
}

void PrintTo(const DrawnImage& image, std::ostream* stream)
{
    *stream << image.path;
}

class DrawnImages : public testing::TestWithParam<DrawnImage>
{
};

class TemplateImages : public testing::TestWithParam<DrawnImage>
{
};

class OpaqueImages : public testing::TestWithParam<DrawnImage>
{
};

constexpr QSize Symbol(24, 24);
constexpr QSize Row(32, 60);

const DrawnImage assets[] = {
    { "assets/AppViewBack", { 8, 8 } },
    { "assets/topfade", { 24, 44 } },
    { "assets/bottomtable", { 32, 49 } },
    { "assets/cellback1", Row },
    { "assets/cellback2", Row },
    { "assets/cellback1high", Row },
    { "assets/cellback2high", Row },
    { "assets/buttonback", { 32, 30 } },
    { "assets/buttonbackred", { 32, 30 } },
    { "assets/Homepage", { 42, 42 } },
    { "assets/vesklogo@2x", { 248, 72 } },
};

const DrawnImage opaque[] = {
    { "assets/AppViewBack", { 8, 8 } },
    { "assets/topfade", { 24, 44 } },
    { "assets/bottomtable", { 32, 49 } },
    { "assets/cellback1", Row },
    { "assets/cellback2", Row },
    { "assets/cellback1high", Row },
    { "assets/cellback2high", Row },
};

const DrawnImage symbols[] = {
    { "symbols/house.fill", Symbol },
    { "symbols/arrow.up.arrow.down", Symbol },
    { "symbols/square.grid.2x2", Symbol },
    { "symbols/magnifyingglass", Symbol },
    { "symbols/gearshape", Symbol },
    { "symbols/info.circle", Symbol },
    { "symbols/server.rack", Symbol },
    { "symbols/square.grid.2x2.fill", Symbol },
    { "symbols/arrow.down.circle.fill", Symbol },
    { "symbols/gearshape.fill", Symbol },
    { "symbols/antenna.radiowaves.left.and.right", Symbol },
    { "symbols/arrow.up.circle.fill", Symbol },
    { "symbols/checkmark.circle.fill", Symbol },
    { "glyphs/chevron.right", Symbol },
    { "glyphs/chevron.left", Symbol },
    { "glyphs/checkmark", Symbol },
    { "glyphs/xmark.circle.fill", Symbol },
    { "glyphs/spinner", Symbol },
};

} // namespace

TEST_P(DrawnImages, haveTheirPointSizeAtEveryScale)
{
    for (int scale = 1; scale <= 3; ++scale)
        EXPECT_EQ(picture(GetParam(), scale).size(), GetParam().points * scale) << "at scale " << scale;
}

TEST_P(OpaqueImages, letNothingShineThroughWhenTheyAreTiledOrStretched)
{
    for (int scale = 1; scale <= 3; ++scale)
        EXPECT_TRUE(isOpaque(picture(GetParam(), scale))) << "at scale " << scale;
}

TEST_P(TemplateImages, areBlackInkOnNothingSoThatOnlyTheTintColoursThem)
{
    const QImage image = picture(GetParam(), 2);
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            if (colour.alpha() == 0)
                continue;
            ++inked;
            ASSERT_EQ(colour.rgb() & RGB_MASK, 0U) << x << ", " << y;
        }
    }
    EXPECT_GT(inked, 100);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
}

INSTANTIATE_TEST_SUITE_P(Assets, DrawnImages, testing::ValuesIn(assets));
INSTANTIATE_TEST_SUITE_P(Symbols, DrawnImages, testing::ValuesIn(symbols));
INSTANTIATE_TEST_SUITE_P(Symbols, TemplateImages, testing::ValuesIn(symbols));
INSTANTIATE_TEST_SUITE_P(Backgrounds, OpaqueImages, testing::ValuesIn(opaque));
