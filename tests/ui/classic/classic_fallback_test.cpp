// Everything here runs in a program of its own, which has no assets at all.
#include "ClassicPackageCell.h"
#include "ClassicUI.h"
#include "TestPackage.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

#include <memory>

TEST(MissingAssets, makeThePageAFlatColor)
{
    const Color& color = ClassicUI::veskBackgroundColor();
    EXPECT_TRUE(color.pattern.isNull());
    EXPECT_EQ(color, ClassicUI::colorWithRed(232, 235, 239, 1));
    TableView table;
    ClassicUI::styleTableView(table);
    EXPECT_EQ(table.backgroundColor(), color);
}

TEST(MissingAssets, leaveTheBarsTheirColors)
{
    NavigationController navigation(new ViewController);
    ClassicUI::styleNavigationController(navigation);
    EXPECT_TRUE(navigation.navigationBar()->standardAppearance().backgroundImage.isNull());
    EXPECT_EQ(
        navigation.navigationBar()->standardAppearance().backgroundColor, ClassicUI::colorWithRed(100, 123, 151, 1));

    TabBarController tabs;
    ClassicUI::styleTabBarController(tabs);
    EXPECT_TRUE(tabs.tabBar()->standardAppearance().backgroundImage.isNull());
    EXPECT_EQ(tabs.tabBar()->standardAppearance().backgroundColor, ClassicUI::colorWithRed(77, 91, 109, 1));
}

TEST(MissingAssets, leaveButtonsTheirTitle)
{
    const std::unique_ptr<Button> button(
        ClassicUI::classicButtonWithTitle(QStringLiteral("Install"), ClassicUI::ButtonKind::Destructive));
    EXPECT_TRUE(button->backgroundImage().isNull());
    EXPECT_EQ(button->title(), QStringLiteral("Install"));
}

TEST(MissingAssets, leaveRowsWithoutBackgrounds)
{
    TableViewCell cell(TableViewCell::Style::Default, QStringLiteral("Cell"));
    cell.setBackgroundView(new ImageView);
    cell.setSelectedBackgroundView(new ImageView);
    ClassicUI::styleCell(cell, 0);
    EXPECT_EQ(cell.backgroundView(), nullptr);
    EXPECT_EQ(cell.selectedBackgroundView(), nullptr);
    EXPECT_EQ(cell.textLabel()->textColor(), ClassicUI::veskTextColor());
}

TEST(MissingAssets, leavePackageRowsWithoutAPlaceholder)
{
    ClassicPackageCell cell(TableViewCell::Style::Default, QStringLiteral("PackageCell"));
    cell.configureWithPackage(*makePackage(QStringLiteral("Alpha")), 0);
    EXPECT_TRUE(cell.imageView()->image().isNull());
    EXPECT_EQ(cell.textLabel()->text(), QStringLiteral("Alpha"));
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    Q_CLEANUP_RESOURCE(vesk_pictures);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
