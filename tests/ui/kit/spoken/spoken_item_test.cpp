#include "ui/kit/spoken/SpokenItem.h"

#include <QAccessible>
#include <QQuickWindow>

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
