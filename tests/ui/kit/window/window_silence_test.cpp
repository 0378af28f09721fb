// What a window must not do: show what nobody asked for.
#include "tests/ui/kit/window/KitWindowTest.h"

namespace {

class Silence : public KitWindowTest
{
protected:
    bool showsARing() const
    {
        std::vector<QQuickItem*> open{ quick()->contentItem() };
        while (!open.empty()) {
            const QQuickItem* const item = open.back();
            open.pop_back();
            if (QLatin1String(item->metaObject()->className()).startsWith(QLatin1String("FocusRing"))
                && item->isVisible())
                return true;
            for (QQuickItem* const child : item->childItems())
                open.push_back(child);
        }
        return false;
    }
};

} // namespace

TEST_F(Silence, showsNoFocusRingAfterATapButAfterAKey)
{
    tap({ quick()->width() * 0.75, quick()->height() - 20.0 });
    grabbed();
    EXPECT_FALSE(showsARing());
    press(Qt::Key_Tab);
    grabbed();
    EXPECT_TRUE(showsARing());
    press(Qt::Key_1, Qt::ControlModifier);
    grabbed();
    tap(middleOf({ 0, 3 }));
    grabbed();
    EXPECT_FALSE(showsARing());
}
