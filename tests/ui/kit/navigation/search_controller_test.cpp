#include "ui/kit/navigation/SearchController.h"

#include <QSignalSpy>
#include <QStringList>

#include <gtest/gtest.h>

TEST(SearchController, callsItsUpdaterAtEveryChangeOfTheText)
{
    kit::SearchController controller;
    QStringList texts;
    controller.setSearchResultsUpdater(
        [&](kit::SearchController* changed) { texts.append(changed->searchBar()->text()); });
    controller.searchBar()->setText(QStringLiteral("v"));
    controller.searchBar()->setText(QStringLiteral("ve"));
    controller.searchBar()->setText(QStringLiteral("ve"));
    controller.searchBar()->setText(QString());
    EXPECT_EQ(texts, (QStringList{ QStringLiteral("v"), QStringLiteral("ve"), QString() }));
}

TEST(SearchController, doesWithoutAnUpdater)
{
    kit::SearchController controller;
    controller.searchBar()->setText(QStringLiteral("v"));
    EXPECT_EQ(controller.searchBar()->text(), QStringLiteral("v"));
}

TEST(SearchBar, emptiesItsFieldAndLeavesItAtCancel)
{
    kit::SearchController controller;
    int updates = 0;
    controller.setSearchResultsUpdater([&](kit::SearchController*) { ++updates; });
    kit::SearchBar* const bar = controller.searchBar();
    bar->setActive(true);
    bar->setText(QStringLiteral("vesk"));
    bar->cancel();
    EXPECT_TRUE(bar->text().isEmpty());
    EXPECT_FALSE(bar->isActive());
    EXPECT_EQ(updates, 2);
}

TEST(SearchBar, callsTheUpdaterAtTheCancelOfAnEmptyFieldToo)
{
    kit::SearchController controller;
    QStringList texts;
    controller.setSearchResultsUpdater(
        [&](kit::SearchController* cancelled) { texts.append(cancelled->searchBar()->text()); });
    controller.searchBar()->setActive(true);
    controller.searchBar()->cancel();
    EXPECT_EQ(texts, QStringList(QStringLiteral("")));
    EXPECT_FALSE(controller.searchBar()->isActive());
}

TEST(SearchBar, leavesTheKeyboardAloneWhenItIsLeftThatNobodyWasIn)
{
    kit::SearchBar bar;
    const QSignalSpy told(&bar, &kit::SearchBar::activeChanged);
    bar.setActive(false);
    EXPECT_EQ(told.count(), 0);
}

TEST(SearchBar, tellsWhatItShows)
{
    kit::SearchBar bar;
    QSignalSpy changed(&bar, &kit::SearchBar::searchBarChanged);
    bar.setPlaceholder(QStringLiteral("Packages"));
    bar.setTintColor(kit::Color::white());
    EXPECT_EQ(bar.placeholder(), QStringLiteral("Packages"));
    EXPECT_EQ(bar.tint(), QColor(Qt::white));
    EXPECT_EQ(changed.count(), 2);
}

TEST(SearchBar, staysActiveWhenItsTextIsEmptied)
{
    kit::SearchBar bar;
    bar.setActive(true);
    bar.setText(QStringLiteral("x"));
    bar.setText(QString());
    EXPECT_TRUE(bar.isActive());
}
