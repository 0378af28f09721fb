#include "ui/classic/ClassicUI.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace {

void expectColor(const kit::Color& color, int red, int green, int blue, double alpha = 1)
{
    EXPECT_DOUBLE_EQ(color.red, red / 255.0);
    EXPECT_DOUBLE_EQ(color.green, green / 255.0);
    EXPECT_DOUBLE_EQ(color.blue, blue / 255.0);
    EXPECT_DOUBLE_EQ(color.alpha, alpha);
    EXPECT_TRUE(color.pattern.isNull());
}

// The image is the asset of that name, with those caps at its sides, to be stretched.
void expectStretched(const kit::Image& image, const QString& name, double cap)
{
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.identity(), kit::Image::named(name).identity());
    EXPECT_TRUE(image.isResizable());
    EXPECT_EQ(image.resizingMode(), kit::Image::ResizingMode::Stretch);
    EXPECT_EQ(image.capInsets(), (kit::EdgeInsets{ 0, cap, 0, cap }));
}

void expectFont(const QFont& font, int size, QFont::Weight weight)
{
    EXPECT_EQ(font.pixelSize(), size);
    EXPECT_EQ(font.weight(), weight);
}

kit::Image shownBy(kit::View* view)
{
    const auto* imageView = qobject_cast<kit::ImageView*>(view);
    return imageView ? imageView->image() : kit::Image();
}

void expectRowAssets(const kit::TableViewCell& cell, const QString& normal)
{
    expectStretched(shownBy(cell.backgroundView()), normal, 12);
    expectStretched(shownBy(cell.selectedBackgroundView()), normal + QStringLiteral("high"), 12);
}

void expectLookOfRows(const kit::TableViewCell& cell)
{
    EXPECT_EQ(cell.backgroundColor(), kit::Color::clear());
    expectColor(cell.textLabel()->textColor(), 25, 50, 80);
    expectFont(cell.textLabel()->font(), 15, QFont::Bold);
    expectColor(cell.detailTextLabel()->textColor(), 74, 84, 98);
    expectFont(cell.detailTextLabel()->font(), 12, QFont::Normal);
}

} // namespace

TEST(Palette, dividesComponentsBy255WithoutRoundingAndKeepsTheAlpha)
{
    expectColor(ClassicUI::colorWithRed(1, 2, 254, 0.3), 1, 2, 254, 0.3);
}

TEST(Palette, givesExactlyOneForTheFullComponent)
{
    const kit::Color white = ClassicUI::colorWithRed(255, 255, 255, 1);
    EXPECT_EQ(white.red, 1.0);
    EXPECT_EQ(white.green, 1.0);
    EXPECT_EQ(white.blue, 1.0);
}

TEST(Palette, passesComponentsAbove255OnUnclamped)
{
    EXPECT_DOUBLE_EQ(ClassicUI::colorWithRed(510, 0, 0, 1).red, 2.0);
    EXPECT_DOUBLE_EQ(ClassicUI::colorWithRed(0, 0, 0, 1.5).alpha, 1.5);
}

TEST(Palette, hasItsNamedColors)
{
    expectColor(ClassicUI::veskTextColor(), 25, 50, 80);
    expectColor(ClassicUI::veskSecondaryTextColor(), 74, 84, 98);
    expectColor(ClassicUI::veskBlueColor(), 48, 88, 145);
    expectColor(ClassicUI::veskOrangeColor(), 236, 129, 17);
    expectColor(ClassicUI::veskRedColor(), 175, 40, 35);
}

TEST(BackgroundColor, tilesTheAsset)
{
    EXPECT_EQ(ClassicUI::veskBackgroundColor().pattern.identity(),
        kit::Image::named(QStringLiteral("AppViewBack")).identity());
    EXPECT_FALSE(ClassicUI::veskBackgroundColor().pattern.isResizable());
}

TEST(BackgroundColor, isOneAndTheSameFromEveryThread)
{
    const kit::Color* other = nullptr;
    std::thread([&] { other = &ClassicUI::veskBackgroundColor(); }).join();
    EXPECT_EQ(other, &ClassicUI::veskBackgroundColor());
}

TEST(Assets, areAllThere)
{
    for (const auto* name : { "AppViewBack", "topfade", "bottomtable", "cellback1", "cellback2", "cellback1high",
             "cellback2high", "buttonback", "buttonbackred", "Homepage", "vesklogo@2x" })
        EXPECT_FALSE(ClassicUI::assetNamed(QLatin1String(name)).isNull()) << name;
}

TEST(Assets, giveNothingForANameThatIsNotThere)
{
    EXPECT_TRUE(ClassicUI::assetNamed(QStringLiteral("nowhere")).isNull());
    EXPECT_TRUE(ClassicUI::assetNamed(QString()).isNull());
    EXPECT_TRUE(ClassicUI::stretchableAsset(QStringLiteral("nowhere"), { 0, 8, 0, 8 }).isNull());
    EXPECT_FALSE(ClassicUI::stretchableAsset(QStringLiteral("nowhere"), { 0, 8, 0, 8 }).isResizable());
}

TEST(Assets, areStretchedBetweenTheGivenCaps)
{
    const kit::Image image = ClassicUI::stretchableAsset(QStringLiteral("topfade"), { 1, 2, 3, 4 });
    EXPECT_EQ(image.capInsets(), (kit::EdgeInsets{ 1, 2, 3, 4 }));
    EXPECT_EQ(image.resizingMode(), kit::Image::ResizingMode::Stretch);
}

TEST(NavigationBarStyle, isOpaqueLightOnDarkWithTheAssetOverItsColor)
{
    kit::NavigationController controller(new kit::ViewController);
    ClassicUI::styleNavigationController(controller);
    const kit::NavigationBar* bar = controller.navigationBar();
    EXPECT_FALSE(bar->isTranslucent());
    EXPECT_EQ(bar->barStyle(), kit::BarStyle::Black);
    expectColor(bar->tintColor(), 255, 255, 255);
    EXPECT_EQ(bar->standardAppearance().background, kit::BarAppearance::Background::Opaque);
    expectStretched(bar->standardAppearance().backgroundImage, QStringLiteral("topfade"), 8);
    expectColor(bar->standardAppearance().backgroundColor, 100, 123, 151);
    expectColor(bar->standardAppearance().shadowColor, 44, 54, 66);
    expectColor(bar->standardAppearance().titleTextAttributes.foregroundColor, 255, 255, 255);
    expectFont(bar->standardAppearance().titleTextAttributes.font, 18, QFont::Bold);
}

TEST(NavigationBarStyle, tintsABarThatHadAnotherTint)
{
    kit::NavigationController controller(new kit::ViewController);
    controller.navigationBar()->setTintColor(kit::Color::black());
    ClassicUI::styleNavigationController(controller);
    expectColor(controller.navigationBar()->tintColor(), 255, 255, 255);
}

TEST(NavigationBarStyle, doesNotChangeWhenContentScrollsUnderTheBar)
{
    kit::NavigationController controller(new kit::ViewController);
    ClassicUI::styleNavigationController(controller);
    const kit::BarAppearance& edge = controller.navigationBar()->scrollEdgeAppearance();
    expectStretched(edge.backgroundImage, QStringLiteral("topfade"), 8);
    expectColor(edge.backgroundColor, 100, 123, 151);
    expectColor(edge.shadowColor, 44, 54, 66);
    expectFont(edge.titleTextAttributes.font, 18, QFont::Bold);
}

TEST(TabBarStyle, hasTheAssetOverItsColorAndOrangeForTheSelectedTab)
{
    kit::TabBarController controller;
    ClassicUI::styleTabBarController(controller);
    const kit::TabBar* bar = controller.tabBar();
    EXPECT_FALSE(bar->isTranslucent());
    expectColor(bar->tintColor(), 236, 129, 17);
    expectColor(bar->unselectedItemTintColor(), 224, 231, 240);
    for (const kit::TabBarAppearance& appearance : { bar->standardAppearance(), bar->scrollEdgeAppearance() }) {
        EXPECT_EQ(appearance.background, kit::BarAppearance::Background::Opaque);
        expectStretched(appearance.backgroundImage, QStringLiteral("bottomtable"), 12);
        expectColor(appearance.backgroundColor, 77, 91, 109);
        expectColor(appearance.shadowColor, 39, 48, 60);
    }
}

TEST(TabBarStyle, setsTheItemsOfAllThreeLayouts)
{
    kit::TabBarController controller;
    ClassicUI::styleTabBarController(controller);
    const kit::TabBarAppearance& appearance = controller.tabBar()->standardAppearance();
    for (const kit::TabItemAppearance& items : { appearance.stackedLayoutAppearance, appearance.inlineLayoutAppearance,
             appearance.compactInlineLayoutAppearance }) {
        expectColor(items.normal.iconColor, 224, 231, 240);
        expectColor(items.normal.titleTextAttributes.foregroundColor, 224, 231, 240);
        expectFont(items.normal.titleTextAttributes.font, 10, QFont::Bold);
        expectColor(items.selected.iconColor, 236, 129, 17);
        expectColor(items.selected.titleTextAttributes.foregroundColor, 236, 129, 17);
        expectFont(items.selected.titleTextAttributes.font, 10, QFont::Bold);
    }
}

TEST(TableStyle, setsColorsAndHeights)
{
    kit::TableView table;
    ClassicUI::styleTableView(table);
    EXPECT_EQ(table.backgroundColor(), ClassicUI::veskBackgroundColor());
    expectColor(table.separatorColor(), 153, 153, 153, 0.72);
    EXPECT_EQ(table.separatorInset(), kit::EdgeInsets());
    EXPECT_EQ(table.rowHeight(), 60);
    EXPECT_EQ(table.estimatedRowHeight(), 60);
    EXPECT_EQ(table.sectionHeaderHeight(), 25);
    EXPECT_EQ(table.estimatedSectionHeaderHeight(), 25);
    EXPECT_EQ(table.sectionFooterHeight(), 0.01);
    EXPECT_EQ(table.estimatedSectionFooterHeight(), 0.01);
    EXPECT_FALSE(table.delaysContentTouches());
}

TEST(TableStyle, drawsSeparatorsFromEdgeToEdgeWhateverTheirInsetWas)
{
    kit::TableView table;
    table.setSeparatorInset({ 0, 15, 0, 15 });
    ClassicUI::styleTableView(table);
    EXPECT_EQ(table.separatorInset(), kit::EdgeInsets());
}

TEST(TableStyle, drawsNoSeparatorsBelowTheLastRow)
{
    kit::TableView table;
    ClassicUI::styleTableView(table);
    ASSERT_NE(table.tableFooterView(), nullptr);
    EXPECT_EQ(table.tableFooterView()->frame(), QRectF());
}

TEST(RowStyle, alternatesTheBackgroundsWithTheVariant)
{
    kit::TableViewCell cell(kit::TableViewCell::Style::Subtitle, QStringLiteral("Cell"));
    ClassicUI::styleCell(cell, 0);
    expectRowAssets(cell, QStringLiteral("cellback1"));
    ClassicUI::styleCell(cell, 1);
    expectRowAssets(cell, QStringLiteral("cellback2"));
    ClassicUI::styleCell(cell, 2);
    expectRowAssets(cell, QStringLiteral("cellback1"));
    ClassicUI::styleCell(cell, 63439);
    expectRowAssets(cell, QStringLiteral("cellback2"));
}

TEST(RowStyle, makesNoAccessoryForARowThatShallHaveNone)
{
    kit::TableViewCell cell(kit::TableViewCell::Style::Value1, QStringLiteral("Cell"));
    ClassicUI::styleCell(cell, 0, kit::TableViewCell::AccessoryType::None);
    EXPECT_EQ(cell.shownAccessory(), nullptr);
    QSignalSpy changed(&cell, &kit::TableViewCell::cellChanged);
    ClassicUI::styleCell(cell, 0, kit::TableViewCell::AccessoryType::None);
    EXPECT_EQ(changed.count(), 0);
    ClassicUI::styleCell(cell, 0);
    EXPECT_EQ(cell.accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
    ClassicUI::styleCell(cell, 0, kit::TableViewCell::AccessoryType::None);
    EXPECT_EQ(cell.shownAccessory(), nullptr);
}

TEST(RowStyle, setsTextsAccessoryAndMargins)
{
    kit::TableViewCell cell(kit::TableViewCell::Style::Subtitle, QStringLiteral("Cell"));
    ClassicUI::styleCell(cell, 0);
    expectLookOfRows(cell);
    EXPECT_EQ(cell.accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
    expectColor(cell.tintColor(), 48, 88, 145);
    EXPECT_EQ(cell.layoutMargins(), (kit::EdgeInsets{ 0, 10, 0, 10 }));
    EXPECT_EQ(cell.separatorInset(), (kit::EdgeInsets{ 0, 10, 0, 10 }));
}

TEST(RowStyle, replacesWhatAReusedCellLookedLike)
{
    kit::TableViewCell cell(kit::TableViewCell::Style::Subtitle, QStringLiteral("Cell"));
    cell.setBackgroundColor(kit::Color::white());
    for (kit::Label* const label : { cell.textLabel(), cell.detailTextLabel() }) {
        label->setFont(kit::Font::boldSystemFont(30));
        label->setTextColor(kit::Color::white());
    }
    ClassicUI::styleCell(cell, 0);
    expectLookOfRows(cell);
}

TEST(RowStyle, acceptsACellWithoutADetailText)
{
    kit::TableViewCell cell(kit::TableViewCell::Style::Default, QStringLiteral("Cell"));
    ClassicUI::styleCell(cell, 1);
    expectRowAssets(cell, QStringLiteral("cellback2"));
}

TEST(RowStyle, leavesTheTextsAndTheirAlignmentOfAReusedCell)
{
    kit::TableViewCell cell(kit::TableViewCell::Style::Value1, QStringLiteral("Cell"));
    cell.textLabel()->setTextAlignment(Qt::AlignHCenter);
    cell.detailTextLabel()->setText(QStringLiteral("12"));
    ClassicUI::styleCell(cell, 0);
    EXPECT_EQ(cell.textLabel()->textAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(cell.detailTextLabel()->text(), QStringLiteral("12"));
}

TEST(SectionHeader, hasAGradientAndItsTitleInCapitals)
{
    const std::unique_ptr<kit::View> header(
        ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("All Categories"), 390));
    EXPECT_EQ(header->frame(), QRectF(0, 0, 390, 25));
    expectColor(header->backgroundColor(), 150, 164, 178);
    ASSERT_TRUE(header->gradient());
    expectColor(header->gradient()->top, 173, 184, 195);
    expectColor(header->gradient()->bottom, 117, 132, 149);

    ASSERT_EQ(header->subviews().size(), 1);
    const auto* label = qobject_cast<kit::Label*>(header->subviews().first());
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->frame(), QRectF(14, 0, 362, 25));
    EXPECT_EQ(label->text(), QStringLiteral("ALL CATEGORIES"));
    expectColor(label->textColor(), 255, 255, 255);
    expectFont(label->font(), 12, QFont::Bold);
    EXPECT_EQ(label->shadow(), kit::Label::Shadow::Below);
    EXPECT_EQ(label->shadowColor(), kit::Color::black(0.42));
}

// A screen reader would tell the title twice.
TEST(SectionHeader, isToldByItselfAndNotByItsLabelToo)
{
    const std::unique_ptr<kit::View> header(ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("Title"), 320));
    EXPECT_TRUE(header->isAccessibilityElement());
    EXPECT_EQ(header->accessibilityLabel(), QStringLiteral("TITLE"));
    EXPECT_FALSE(header->subviews().first()->isAccessibilityElement());
}

TEST(SectionHeader, givesTheLabelNoWidthBelow28Points)
{
    for (const double width : { 27.9, 10.0, 0.0 }) {
        const std::unique_ptr<kit::View> header(ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("Title"), width));
        EXPECT_EQ(header->subviews().first()->width(), 0) << width;
    }
}

TEST(SectionHeader, capitalisesLettersOfEveryScript)
{
    const std::unique_ptr<kit::View> header(ClassicUI::sectionHeaderViewWithTitle(QStringLiteral("é ß д 日"), 320));
    EXPECT_EQ(static_cast<kit::Label*>(header->subviews().first())->text(), QStringLiteral("É SS Д 日"));
}

TEST(ClassicButton, looksEngraved)
{
    const std::unique_ptr<kit::Button> button(
        ClassicUI::classicButtonWithTitle(QStringLiteral("Install"), ClassicUI::ButtonKind::Normal));
    expectStretched(button->backgroundImage(), QStringLiteral("buttonback"), 12);
    EXPECT_EQ(button->title(), QStringLiteral("Install"));
    expectColor(button->titleLabel()->textColor(), 255, 255, 255);
    expectFont(button->titleLabel()->font(), 14, QFont::Bold);
    EXPECT_EQ(button->titleLabel()->shadow(), kit::Label::Shadow::Above);
    EXPECT_EQ(button->titleLabel()->shadowColor(), kit::Color::black(0.42));
    EXPECT_EQ(button->contentEdgeInsets(), (kit::EdgeInsets{ 4, 12, 4, 12 }));
}

TEST(ClassicButton, isRedWhenItDestroys)
{
    const std::unique_ptr<kit::Button> button(
        ClassicUI::classicButtonWithTitle(QStringLiteral("Uninstall"), ClassicUI::ButtonKind::Destructive));
    expectStretched(button->backgroundImage(), QStringLiteral("buttonbackred"), 12);
}

TEST(PackageIcon, isThePlaceholderFittedIntoItsViewForAPackageWithoutAnIcon)
{
    VeskPackage package;
    kit::ImageView view(kit::Image::systemNamed(QStringLiteral("gearshape")));
    ASSERT_EQ(view.contentMode(), kit::ImageView::ContentMode::ScaleToFill);
    ClassicUI::loadIconForPackage(package, view);
    EXPECT_EQ(view.image(), ClassicUI::assetNamed(QStringLiteral("Homepage")));
    EXPECT_EQ(view.contentMode(), kit::ImageView::ContentMode::AspectFit);
}

// Capitals of these letters are longer, and making them one after the other takes time that grows with the square.
TEST(SectionHeader, makesCapitalsOfNoMoreThanCanBeSeen)
{
    const std::unique_ptr<kit::View> header(
        ClassicUI::sectionHeaderViewWithTitle(QString(qsizetype(1) << 20, QChar(0xdf)), 390));
    const auto* label = qobject_cast<kit::Label*>(header->subviews().first());
    EXPECT_LE(label->text().size(), 2000);
    EXPECT_TRUE(label->shownText().startsWith(QString(1000, u'S')));
    EXPECT_LE(header->accessibilityLabel().size(), 2000);
}
