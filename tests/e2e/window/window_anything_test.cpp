// Many quick things at once, in an order that chance decides: whatever a person does, the window goes on.
#include "tests/e2e/window/WindowTest.h"
#include "ui/kit/navigation/SearchController.h"
#include "ui/kit/paint/Animations.h"

#include <QPointingDevice>
#include <QTest>

#include <array>
#include <memory>
#include <random>

namespace {

class Anything : public WindowTest, public testing::WithParamInterface<unsigned>
{
protected:
    void SetUp() override
    {
        kit::Animations::setEnabled(true);
        network->serve(QStringLiteral("http://127.0.0.1/first/Packages"), indexOf(40));
        addPackages(40);
        open();
    }
    void TearDown() override { kit::Animations::setEnabled(false); }

    static QByteArray indexOf(int count)
    {
        QByteArray index;
        for (int number = 0; number < count; ++number) {
            const QByteArray n = QByteArray::number(number);
            index += "Package: org.example.p" + n + "\nName: Served " + n + "\nVersion: 1." + n + "\nSection: S"
                + QByteArray::number(number % 15) + "\nIcon: http://127.0.0.1:1/" + n + ".png\n\n";
        }
        return index;
    }
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_chance); }
    QPointF anyPoint()
    {
        const QSize size = touch->quickWindow().size();
        return { double(below(size.width())), double(below(size.height())) };
    }
    template <typename Value, std::size_t Size> Value anyOf(const std::array<Value, Size>& values)
    {
        return values.at(static_cast<std::size_t>(below(Size)));
    }

    void tapWithTwoFingers()
    {
        const QPoint first = anyPoint().toPoint();
        const QPoint second = anyPoint().toPoint();
        QTest::touchEvent(&touch->quickWindow(), m_otherHand.get()).press(0, first).press(1, second);
        QTest::touchEvent(&touch->quickWindow(), m_otherHand.get()).release(0, first).release(1, second);
        turnLoop();
    }
    void pressAnyKey()
    {
        using KeyPress = std::pair<Qt::Key, Qt::KeyboardModifiers>;
        static const std::array<KeyPress, 22> keys{ { { Qt::Key_Down, {} }, { Qt::Key_Up, {} }, { Qt::Key_End, {} },
            { Qt::Key_PageDown, {} }, { Qt::Key_Return, {} }, { Qt::Key_Return, {} }, { Qt::Key_Space, {} },
            { Qt::Key_Escape, {} }, { Qt::Key_Delete, {} }, { Qt::Key_Tab, {} }, { Qt::Key_Tab, {} },
            { Qt::Key_Backtab, Qt::ShiftModifier }, { Qt::Key_F5, {} }, { Qt::Key_Left, Qt::AltModifier },
            { Qt::Key_F, Qt::ControlModifier }, { Qt::Key_1, Qt::ControlModifier }, { Qt::Key_2, Qt::ControlModifier },
            { Qt::Key_3, Qt::ControlModifier }, { Qt::Key_4, Qt::ControlModifier }, { Qt::Key_5, Qt::ControlModifier },
            { Qt::Key_Backspace, {} }, { Qt::Key_A, Qt::ControlModifier } } };
        const auto [key, modifiers] = anyOf(keys);
        touch->key(key, modifiers);
    }
    void pressByAnyScreenReader()
    {
        const auto role = anyOf<QAccessible::Role, 4>(
            { QAccessible::Button, QAccessible::ListItem, QAccessible::CheckBox, QAccessible::PageTab });
        const auto items = touch->accessibleItems(role);
        if (!items.empty())
            TouchDriver::pressByScreenReader(items.at(static_cast<std::size_t>(below(static_cast<int>(items.size())))));
    }
    void swipeAnyRow()
    {
        const QPointF point = anyPoint();
        touch->flick(point, point - QPointF(below(240), 0));
    }
    void changeTheWorld()
    {
        switch (below(4)) {
        case 0:
            return network->hold();
        case 1:
            return network->release();
        case 2:
            return manager->refreshAllWithCompletion([] {});
        default:
            if (!manager->repositories().empty())
                manager->removeRepository(manager->repositories().front());
            manager->addRepositoryWithURLString(QStringLiteral("http://127.0.0.1/first"), [](bool, const auto&) {});
        }
    }
    void resizeAnyhow() { touch->quickWindow().resize(320 + below(900), 320 + below(700)); }

    void doAnything()
    {
        switch (below(13)) {
        case 0:
        case 1:
        case 2:
            return touch->tap(anyPoint());
        case 3:
            return tapWithTwoFingers();
        case 4:
            return touch->flick(anyPoint(), anyPoint());
        case 5:
            return swipeAnyRow();
        case 6:
            return touch->wheel(anyPoint(), below(11) - 5);
        case 7:
            return touch->type(anyOf<QString, 4>(
                { QStringLiteral("s"), QStringLiteral(" "), QStringLiteral("1"), QString(200, QLatin1Char('x')) }));
        case 8:
            return changeTheWorld();
        case 9:
            return resizeAnyhow();
        case 10:
            return pressByAnyScreenReader();
        default:
            return pressAnyKey();
        }
    }

private:
    std::mt19937 m_chance{ GetParam() };
    const std::unique_ptr<QPointingDevice> m_otherHand{ QTest::createTouchDevice() };
};

} // namespace

TEST_P(Anything, leavesAWindowThatGoesOn)
{
    for (int step = 0; step < 120; ++step)
        doAnything();
    network->release();
    touch->quickWindow().resize(390, 844);
    while (kit::AlertController* shown = alert())
        shown->cancel();
    ASSERT_TRUE(touch->settle());
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Manage")));
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Manage")));
    ASSERT_TRUE(touch->waitUntil([&] { return touch->title() == QStringLiteral("Manage"); }));
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Search")));
    ASSERT_TRUE(touch->tapTab(QStringLiteral("Search")));
    EXPECT_TRUE(touch->waitUntil([&] { return touch->title() == QStringLiteral("Search"); }));
}

INSTANTIATE_TEST_SUITE_P(ByChance, Anything, testing::Range(1U, 5U));
