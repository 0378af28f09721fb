// Every image the interface asks for by name is there, at three scales, in the size the layout counts on.

#include "resources/VeskResources.h"

#include <QImage>
#include <QSize>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

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
    { "assets/vesklogo@2x", { 240, 72 } },
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

struct Background
{
    const char* path;
    int capInset;
};

void PrintTo(const Background& background, std::ostream* stream)
{
    *stream << background.path;
}

class StretchedImages : public testing::TestWithParam<Background>
{
};

const Background stretched[] = {
    { "assets/topfade", 8 },
    { "assets/bottomtable", 12 },
    { "assets/cellback1", 12 },
    { "assets/cellback2", 12 },
    { "assets/cellback1high", 12 },
    { "assets/cellback2high", 12 },
    { "assets/buttonback", 12 },
    { "assets/buttonbackred", 12 },
};

double linear(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({ luminance(one), luminance(other) });
    return (lighter + 0.05) / (darker + 0.05);
}

// The poorest contrast of a text with the middle column of a background, over the part of its height where the letters
// stand.
double leastContrast(const char* path, const QColor& text, double from, double to)
{
    const QImage image = picture({ path, {} }, 2);
    double least = 21;
    for (int y = int(image.height() * from); y < int(image.height() * to); ++y)
        least = std::min(least, contrast(text, image.pixelColor(image.width() / 2, y)));
    return least;
}

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

TEST_P(StretchedImages, areTheSameInEveryColumnBetweenTheirCaps)
{
    for (int scale = 1; scale <= 3; ++scale) {
        const QImage image = picture({ GetParam().path, {} }, scale);
        const int first = GetParam().capInset * scale;
        ASSERT_GT(image.width() - first, first);
        for (int x = first; x < image.width() - first; ++x)
            for (int y = 0; y < image.height(); ++y)
                ASSERT_EQ(image.pixel(x, y), image.pixel(first, y)) << "at scale " << scale << ", " << x << ", " << y;
    }
}

TEST(RowBackgrounds, keepBothTextColoursLegible)
{
    for (const char* row : { "assets/cellback1", "assets/cellback2", "assets/cellback1high", "assets/cellback2high" }) {
        EXPECT_GE(leastContrast(row, QColor(25, 50, 80), 0, 1), 7) << row;
        EXPECT_GE(leastContrast(row, QColor(74, 84, 98), 0, 1), 4.5) << row;
    }
}

TEST(BarAndButtonBackgrounds, keepTheirTitlesLegible)
{
    EXPECT_GE(leastContrast("assets/topfade", Qt::white, 0.25, 0.75), 3);
    EXPECT_GE(leastContrast("assets/buttonback", Qt::white, 0.25, 0.75), 3);
    EXPECT_GE(leastContrast("assets/buttonbackred", Qt::white, 0.25, 0.75), 3);
    EXPECT_GE(leastContrast("assets/bottomtable", QColor(224, 231, 240), 0.1, 0.95), 4.5);
    EXPECT_GE(leastContrast("assets/bottomtable", QColor(236, 129, 17), 0.7, 0.95), 3);
}

INSTANTIATE_TEST_SUITE_P(Assets, DrawnImages, testing::ValuesIn(assets));
INSTANTIATE_TEST_SUITE_P(Symbols, DrawnImages, testing::ValuesIn(symbols));
INSTANTIATE_TEST_SUITE_P(Symbols, TemplateImages, testing::ValuesIn(symbols));
INSTANTIATE_TEST_SUITE_P(Backgrounds, OpaqueImages, testing::ValuesIn(opaque));
INSTANTIATE_TEST_SUITE_P(Backgrounds, StretchedImages, testing::ValuesIn(stretched));
