// Everything here runs in a program of its own, which has no assets at all.
#include "tests/ui/classic/TestPackage.h"
#include "ui/classic/ClassicPackageCell.h"
#include "ui/classic/ClassicUI.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

#include <memory>

TEST(MissingAssets, makeThePageAFlatColor)
{
    const kit::Color& color = ClassicUI::veskBackgroundColor();
    EXPECT_TRUE(color.pattern.isNull());
    EXPECT_EQ(color, ClassicUI::colorWithRed(232, 235, 239, 1));
    kit::TableView table;
    ClassicUI::styleTableView(table);
    EXPECT_EQ(table.backgroundColor(), color);
}

TEST(MissingAssets, leaveTheBarsTheirColors)
{
    kit::NavigationController navigation(new kit::ViewController);
    ClassicUI::styleNavigationController(navigation);
    EXPECT_TRUE(navigation.navigationBar()->standardAppearance().backgroundImage.isNull());
    EXPECT_EQ(
        navigation.navigationBar()->standardAppearance().backgroundColor, ClassicUI::colorWithRed(100, 123, 151, 1));

    kit::TabBarController tabs;
    ClassicUI::styleTabBarController(tabs);
    EXPECT_TRUE(tabs.tabBar()->standardAppearance().backgroundImage.isNull());
    EXPECT_EQ(tabs.tabBar()->standardAppearance().backgroundColor, ClassicUI::colorWithRed(77, 91, 109, 1));
}

TEST(MissingAssets, leaveButtonsTheirTitle)
{
    const std::unique_ptr<kit::Button> button(
        ClassicUI::classicButtonWithTitle(QStringLiteral("Install"), ClassicUI::ButtonKind::Destructive));
    EXPECT_TRUE(button->backgroundImage().isNull());
    EXPECT_EQ(button->title(), QStringLiteral("Install"));
}

TEST(MissingAssets, leaveRowsWithoutBackgrounds)
{
    kit::TableViewCell cell(kit::TableViewCell::Style::Default, QStringLiteral("Cell"));
    cell.setBackgroundView(new kit::ImageView);
    cell.setSelectedBackgroundView(new kit::ImageView);
    ClassicUI::styleCell(cell, 0);
    EXPECT_EQ(cell.backgroundView(), nullptr);
    EXPECT_EQ(cell.selectedBackgroundView(), nullptr);
    EXPECT_EQ(cell.textLabel()->textColor(), ClassicUI::veskTextColor());
}

TEST(MissingAssets, leavePackageRowsWithoutAPlaceholder)
{
    ClassicPackageCell cell(kit::TableViewCell::Style::Default, QStringLiteral("PackageCell"));
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
