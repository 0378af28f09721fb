#include "ui/kit/navigation/BarItems.h"
#include "ui/kit/navigation/NavigationItem.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>

TEST(BarButtonItem, callsItsActionAtAPress)
{
    int presses = 0;
    kit::BarButtonItem item(QStringLiteral("Reload"), kit::BarButtonItem::Style::Plain, [&] { ++presses; });
    item.press();
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(item.accessibilityLabel(), QStringLiteral("Reload"));
    EXPECT_FALSE(item.isEmphasised());
}

TEST(BarButtonItem, doesNothingWhileItIsDisabled)
{
    int presses = 0;
    kit::BarButtonItem item(QStringLiteral("Add"), kit::BarButtonItem::Style::Plain, [&] { ++presses; });
    QSignalSpy changed(&item, &kit::BarButtonItem::enabledChanged);
    item.setEnabled(false);
    item.setEnabled(false);
    item.press();
    EXPECT_EQ(presses, 0);
    item.setEnabled(true);
    item.press();
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(changed.count(), 2);
}

TEST(BarButtonItem, doesWithoutAnAction)
{
    kit::BarButtonItem item(QStringLiteral("Nothing"), kit::BarButtonItem::Style::Done, {});
    item.press();
    EXPECT_TRUE(item.isEmphasised());
}

TEST(BarButtonItem, saysWhatItsImageMeans)
{
    const kit::BarButtonItem item(kit::Image::systemNamed(QStringLiteral("info.circle")), QStringLiteral("About"), {});
    EXPECT_TRUE(item.title().isEmpty());
    EXPECT_FALSE(item.image().isNull());
    EXPECT_EQ(item.accessibilityLabel(), QStringLiteral("About"));
}

TEST(NavigationItem, ownsWhatItIsGiven)
{
    kit::NavigationItem item;
    const QPointer<kit::BarButtonItem> first(
        new kit::BarButtonItem(QStringLiteral("Edit"), kit::BarButtonItem::Style::Plain, {}));
    item.setRightBarButtonItem(first);
    EXPECT_EQ(first->parent(), &item);
    item.setRightBarButtonItem(new kit::BarButtonItem(QStringLiteral("Done"), kit::BarButtonItem::Style::Done, {}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(item.rightBarButtonItem()->title(), QStringLiteral("Done"));
}

TEST(NavigationItem, keepsAnItemThatIsSetAgain)
{
    kit::NavigationItem item;
    const QPointer<kit::BarButtonItem> kept(
        new kit::BarButtonItem(QStringLiteral("Edit"), kit::BarButtonItem::Style::Plain, {}));
    item.setLeftBarButtonItem(kept);
    item.setLeftBarButtonItem(kept);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_FALSE(kept.isNull());
    EXPECT_EQ(item.leftBarButtonItem(), kept);
}

TEST(NavigationItem, letsAButtonReplaceItselfInItsOwnAction)
{
    kit::NavigationItem item;
    const QString seen = QStringLiteral("a text long enough to stand outside the action itself");
    QString read;
    item.setRightBarButtonItem(
        new kit::BarButtonItem(QStringLiteral("Edit"), kit::BarButtonItem::Style::Plain, [&item, &read, seen] {
            item.setRightBarButtonItem(
                new kit::BarButtonItem(QStringLiteral("Done"), kit::BarButtonItem::Style::Done, {}));
            read = seen;
        }));
    const QPointer<kit::BarButtonItem> pressed(item.rightBarButtonItem());
    pressed->press();
    EXPECT_FALSE(pressed.isNull()) << "an item goes only after its action is done";
    EXPECT_EQ(read, seen);
    EXPECT_EQ(item.rightBarButtonItem()->title(), QStringLiteral("Done"));
}

TEST(NavigationItem, tellsWhenAnythingOfItChanges)
{
    kit::NavigationItem item;
    QSignalSpy changed(&item, &kit::NavigationItem::itemChanged);
    item.setTitle(QStringLiteral("Sources"));
    EXPECT_EQ(changed.count(), 1) << "the title";
    EXPECT_EQ(item.title(), QStringLiteral("Sources"));
    item.setLeftBarButtonItem(new kit::BarButtonItem(QStringLiteral("Edit"), kit::BarButtonItem::Style::Plain, {}));
    EXPECT_EQ(changed.count(), 2) << "the left button";
    item.setRightBarButtonItem(new kit::BarButtonItem(QStringLiteral("Add"), kit::BarButtonItem::Style::Plain, {}));
    EXPECT_EQ(changed.count(), 3) << "the right button";
    item.setSearchController(new kit::SearchController);
    EXPECT_EQ(changed.count(), 4) << "the search field";
}

TEST(TabBarItem, tellsWhenItChanges)
{
    kit::TabBarItem item;
    QSignalSpy changed(&item, &kit::TabBarItem::itemChanged);
    item.setTitle(QStringLiteral("Vesk"));
    item.setImage(kit::Image::systemNamed(QStringLiteral("house.fill")));
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(item.title(), QStringLiteral("Vesk"));
    EXPECT_EQ(item.image(), kit::Image::systemNamed(QStringLiteral("house.fill")));
}
