#include "ui/kit/spoken/SpokenItem.h"

#include <QAccessible>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class SpokenItemTest : public testing::Test
{
protected:
    QAccessible::State stateAs(QAccessible::Role role)
    {
        item->setProperty("spokenRole", role);
        return QAccessible::queryAccessibleInterface(item)->state();
    }

    QQuickWindow window;
    kit::SpokenItem* const item = new kit::SpokenItem(window.contentItem());
};

} // namespace

TEST_F(SpokenItemTest, canBeCheckedOrSelectedAsItsRoleAllows)
{
    item->setProperty("spokenOn", true);
    EXPECT_TRUE(stateAs(QAccessible::CheckBox).checkable);
    EXPECT_TRUE(stateAs(QAccessible::CheckBox).checked);
    EXPECT_FALSE(stateAs(QAccessible::Button).checkable);
    for (const auto role : { QAccessible::PageTab, QAccessible::ListItem })
        EXPECT_TRUE(stateAs(role).selectable) << role;
    EXPECT_FALSE(stateAs(QAccessible::CheckBox).selectable);
    EXPECT_FALSE(stateAs(QAccessible::ListItem).selected);
    item->setProperty("spokenSelected", true);
    EXPECT_TRUE(stateAs(QAccessible::ListItem).selected);
}

TEST_F(SpokenItemTest, isModalAsADialogAndBusyAsAProgressBarOnly)
{
    EXPECT_TRUE(stateAs(QAccessible::Dialog).modal);
    EXPECT_FALSE(stateAs(QAccessible::Dialog).busy);
    EXPECT_TRUE(stateAs(QAccessible::ProgressBar).busy);
    EXPECT_FALSE(stateAs(QAccessible::ProgressBar).modal);
}

TEST_F(SpokenItemTest, isFocusedWhileKeysActOnIt)
{
    const auto isFocused = [this] { return QAccessible::queryAccessibleInterface(item)->state().focused; };
    window.show();
    window.requestActivate();
    EXPECT_FALSE(isFocused());
    item->forceActiveFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return isFocused(); }));
    item->setSpokenFocused(false);
    EXPECT_FALSE(isFocused()) << "keys act on a part of it";
    item->setSpokenFocused(true);
    item->setFocus(false);
    EXPECT_TRUE(isFocused()) << "keys act on it through what holds it";
    const kit::SpokenItem nowhere;
    EXPECT_FALSE(nowhere.isSpokenFocused());
}

TEST_F(SpokenItemTest, canBeFocusedWhenTheKeyboardReachesItAndItIsEnabled)
{
    EXPECT_FALSE(stateAs(QAccessible::Button).focusable);
    item->setActiveFocusOnTab(true);
    EXPECT_TRUE(stateAs(QAccessible::Button).focusable);
    item->setEnabled(false);
    EXPECT_FALSE(stateAs(QAccessible::Button).focusable);
    item->setActiveFocusOnTab(false);
    item->setEnabled(true);
    item->setProperty("spokenActions", QStringList(QAccessibleActionInterface::setFocusAction()));
    EXPECT_TRUE(stateAs(QAccessible::Button).focusable);
}

TEST_F(SpokenItemTest, offersWhatItCanDoWhileItIsEnabled)
{
    const QString focus = QAccessibleActionInterface::setFocusAction();
    item->setProperty("spokenActions", QStringList(QStringLiteral("Press")));
    EXPECT_EQ(item->offeredActions(), QStringList(QStringLiteral("Press")));
    item->setActiveFocusOnTab(true);
    EXPECT_EQ(item->offeredActions(), (QStringList{ QStringLiteral("Press"), focus }));
    item->setProperty("spokenActions", QStringList{ focus, QStringLiteral("Press") });
    EXPECT_EQ(item->offeredActions(), (QStringList{ focus, QStringLiteral("Press") }));
    const QSignalSpy acted(item, &kit::SpokenItem::acted);
    item->act(QStringLiteral("Delete"));
    EXPECT_EQ(acted.count(), 0);
    item->act(QStringLiteral("Press"));
    ASSERT_EQ(acted.count(), 1);
    EXPECT_EQ(acted[0][0].toString(), QStringLiteral("Press"));
    item->setEnabled(false);
    EXPECT_TRUE(item->offeredActions().isEmpty());
    item->act(QStringLiteral("Press"));
    EXPECT_EQ(acted.count(), 1);
}

TEST_F(SpokenItemTest, isInSightWithinItsWindowOnly)
{
    const auto isOffscreen = [this] { return QAccessible::queryAccessibleInterface(item)->state().offscreen; };
    window.resize(100, 80);
    item->setSize({ 40, 20 });
    EXPECT_FALSE(isOffscreen());
    for (const QPointF& outside : { QPointF(100, 0), QPointF(-40, 0), QPointF(0, 80), QPointF(0, -20) }) {
        item->setPosition(outside);
        EXPECT_TRUE(isOffscreen()) << outside.x() << ' ' << outside.y();
    }
    item->setPosition({ 99, 79 });
    EXPECT_FALSE(isOffscreen()) << "a corner of it is seen";
    item->setParentItem(nullptr);
    EXPECT_TRUE(isOffscreen()) << "without a window";
    delete item;
}

TEST_F(SpokenItemTest, isInvisibleWithoutAWindowThatShowsIt)
{
    const auto isInvisible = [this] { return QAccessible::queryAccessibleInterface(item)->state().invisible; };
    EXPECT_TRUE(isInvisible()) << "in a window that is not shown yet";
    window.show();
    EXPECT_FALSE(isInvisible());
    item->setVisible(false);
    EXPECT_TRUE(isInvisible());
    item->setVisible(true);
    item->setParentItem(nullptr);
    EXPECT_TRUE(isInvisible()) << "without a window";
    delete item;
}
