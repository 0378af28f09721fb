#include "ui/kit/touch/PressItem.h"

#include <QAccessibleActionInterface>
#include <QKeyEvent>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

const QString Press = QAccessibleActionInterface::pressAction();
const QString Toggle = QAccessibleActionInterface::toggleAction();

enum class Repeat { No, Yes };

// Whether the item took the key.
bool takes(kit::PressItem& item, Qt::Key key, Repeat repeat = Repeat::No)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeat == Repeat::Yes);
    QCoreApplication::sendEvent(&item, &event);
    return event.isAccepted();
}

} // namespace

TEST(PressItem, isAButtonThatAScreenReaderPresses)
{
    kit::PressItem item;
    const QSignalSpy pressed(&item, &kit::PressItem::pressed);
    EXPECT_EQ(item.spokenRole(), QAccessible::Button);
    EXPECT_EQ(item.offeredActions(), QStringList{ Press });
    item.act(Press);
    EXPECT_EQ(pressed.count(), 1);
    item.act(Toggle);
    EXPECT_EQ(pressed.count(), 1);
    item.setEnabled(false);
    item.act(Press);
    EXPECT_EQ(pressed.count(), 1);
}

TEST(PressItem, isToggledToOnceItIsOnOrOff)
{
    kit::PressItem item;
    const QSignalSpy pressed(&item, &kit::PressItem::pressed);
    item.setProperty("spokenRole", QAccessible::CheckBox);
    EXPECT_EQ(item.offeredActions(), (QStringList{ Press, Toggle }));
    item.act(Toggle);
    EXPECT_EQ(pressed.count(), 1);
}

TEST(PressItem, isPressedByReturnEnterAndSpaceAndLeavesOtherKeys)
{
    kit::PressItem item;
    const QSignalSpy pressed(&item, &kit::PressItem::pressed);
    EXPECT_TRUE(takes(item, Qt::Key_Return));
    EXPECT_TRUE(takes(item, Qt::Key_Enter));
    EXPECT_TRUE(takes(item, Qt::Key_Space));
    EXPECT_EQ(pressed.count(), 3);
    EXPECT_FALSE(takes(item, Qt::Key_Tab));
    EXPECT_FALSE(takes(item, Qt::Key_A));
    EXPECT_EQ(pressed.count(), 3);
}

TEST(PressItem, isPressedOnceByAKeyThatIsHeld)
{
    kit::PressItem item;
    const QSignalSpy pressed(&item, &kit::PressItem::pressed);
    EXPECT_TRUE(takes(item, Qt::Key_Space));
    EXPECT_TRUE(takes(item, Qt::Key_Space, Repeat::Yes));
    EXPECT_EQ(pressed.count(), 1);
}
