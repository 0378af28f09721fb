#include "ui/kit/paint/Color.h"
#include "ui/kit/paint/KitLook.h"
#include "ui/kit/text/Font.h"

#include <gtest/gtest.h>

TEST(Color, keepsItsComponentsAndClampsOnlyWhatIsShown)
{
    const kit::Color color{ 2, -1, 0.5, 1.5, {} };
    EXPECT_EQ(color.red, 2);
    EXPECT_EQ(color.toQColor().redF(), 1.0F);
    EXPECT_EQ(color.toQColor().greenF(), 0.0F);
    EXPECT_NEAR(color.toQColor().blueF(), 0.5F, 0.001F);
    EXPECT_EQ(color.toQColor().alphaF(), 1.0F);
}

TEST(Color, hasNamesForTheUsualOnes)
{
    EXPECT_EQ(kit::Color::clear().toQColor().alpha(), 0);
    EXPECT_EQ(kit::Color::white().toQColor(), QColor(255, 255, 255));
    EXPECT_EQ(kit::Color::black().toQColor(), QColor(0, 0, 0));
    EXPECT_NEAR(kit::Color::black(0.42).toQColor().alphaF(), 0.42F, 0.01F);
}

TEST(Color, comparesItsPatternToo)
{
    const kit::Image image = kit::Image::named(QStringLiteral("AppViewBack"));
    ASSERT_FALSE(image.isNull());
    EXPECT_NE(kit::Color::withPatternImage(image), kit::Color::black());
    EXPECT_EQ(kit::Color::withPatternImage(image), kit::Color::withPatternImage(image));
}

TEST(Font, comesInTwoWeightsOfTheSizeAskedFor)
{
    EXPECT_EQ(kit::Font::systemFont(15).pixelSize(), 15);
    EXPECT_EQ(kit::Font::systemFont(15).weight(), QFont::Normal);
    EXPECT_EQ(kit::Font::boldSystemFont(15).weight(), QFont::Bold);
}

TEST(Font, isOfTheInterfacesFamilyWhereNoScreenSetsOne)
{
    const kit::KitLook look;
    for (const QFont& font : { look.font(13, QFont::DemiBold), look.barFont(13, QFont::DemiBold) }) {
        EXPECT_EQ(font.family(), QStringLiteral("Inter"));
        EXPECT_EQ(font.pixelSize(), 13);
        EXPECT_EQ(font.weight(), QFont::DemiBold);
    }
    EXPECT_EQ(kit::Font::systemFont(13).family(), QStringLiteral("Inter"));
}

TEST(Font, measuresATextByItsLines)
{
    const QFont font = kit::Font::systemFont(14);
    const double line = kit::Font::boundingHeight(QStringLiteral("One"), font, 1000);
    EXPECT_GT(line, 13);
    EXPECT_NEAR(kit::Font::boundingHeight(QStringLiteral("One\nTwo\n\nFour"), font, 1000), line * 4, 0.01);
    EXPECT_NEAR(kit::Font::boundingHeight(QStringLiteral("wwwwwwwwww wwwwwwwwww"), font, 140), line * 2, 0.01);
}

TEST(Font, breaksAWordThatIsWiderThanTheWidth)
{
    const QFont font = kit::Font::systemFont(14);
    const double line = kit::Font::boundingHeight(QStringLiteral("W"), font, 1000);
    EXPECT_GT(kit::Font::boundingHeight(QString(100, u'W'), font, 100), line * 10);
}

TEST(Font, measuresInNoWidthAtAll)
{
    const QFont font = kit::Font::systemFont(14);
    EXPECT_GT(kit::Font::boundingHeight(QStringLiteral("abc"), font, 0), 0);
    EXPECT_GT(kit::Font::boundingHeight(QStringLiteral("abc"), font, -50), 0);
    EXPECT_GE(kit::Font::boundingHeight(QString(), font, 100), 0);
}
