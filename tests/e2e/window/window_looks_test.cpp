// How the classic button looks while it is pressed and while it is disabled, in the pixels of the real window.
#include "tests/e2e/window/WindowTest.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/view/Button.h"
#include "ui/screens/browse/PackageDetailViewController.h"

#include <cstdlib>

namespace {

class ClassicButtonLook : public WindowTest
{
protected:
    // The package's screen, where "Install" is such a button at the right of a row.
    void openPackage()
    {
        addPackage(QStringLiteral("Alpha"));
        open();
        ASSERT_TRUE(touch->tapRow({ 0, 0 }));
        ASSERT_TRUE(touch->waitUntil([this] { return touch->title() == QStringLiteral("Alpha"); }));
        ASSERT_TRUE(touch->settle());
        ASSERT_NE(button(), nullptr);
        ASSERT_EQ(button()->title(), QStringLiteral("Install"));
    }
    kit::Button* button() const
    {
        const kit::TableViewCell* const row = table().cellForRow({ 3, 0 });
        return row ? qobject_cast<kit::Button*>(row->accessoryView()) : nullptr;
    }
    QImage drawn() const
    {
        const QQuickItem* const item = touch->itemFor(button());
        const QPointF place = item ? item->mapToScene({ 0, 0 }) : QPointF();
        return touch->picture().copy({ place.toPoint(), button()->frame().size().toSize() });
    }
    // The part left of the title, without the rounded corners.
    QImage besideTheTitle() const { return drawn().copy(7, 7, 4, drawn().height() - 14); }
    bool hasWhiteLetters() const
    {
        const QImage picture = drawn();
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 12; x < picture.width() - 12; ++x)
                if (picture.pixelColor(x, y) == QColor(Qt::white))
                    return true;
        return false;
    }
};

// The first picture with the second laid over it, which is seen through by so much.
QImage mixed(const QImage& below, const QImage& above, double share)
{
    QImage result = below.convertToFormat(QImage::Format_RGB32);
    const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a * (1 - share) + b * share)); };
    for (int y = 0; y < result.height(); ++y)
        for (int x = 0; x < result.width(); ++x) {
            const QColor a = below.pixelColor(x, y);
            const QColor b = above.pixelColor(x, y);
            result.setPixelColor(
                x, y, QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())));
        }
    return result;
}

// The largest difference of any colour; drawing rounds.
int difference(const QImage& first, const QImage& second)
{
    EXPECT_EQ(first.size(), second.size());
    EXPECT_FALSE(first.isNull());
    int largest = 0;
    for (int y = 0; y < first.height(); ++y)
        for (int x = 0; x < first.width(); ++x) {
            const QColor a = first.pixelColor(x, y);
            const QColor b = second.pixelColor(x, y);
            largest = std::max({ largest, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                std::abs(a.blue() - b.blue()) });
        }
    return largest;
}

constexpr int Rounding = 2;

} // namespace

TEST_F(ClassicButtonLook, isDarkerBehindItsTitleWhileItIsPressed)
{
    openPackage();
    const QImage before = besideTheTitle();
    QImage black(before.size(), QImage::Format_RGB32);
    black.fill(Qt::black);
    touch->press(touch->centre(*touch->itemFor(button())));
    EXPECT_LE(difference(besideTheTitle(), mixed(before, black, 0.6 * 110 / 255)), Rounding);
    EXPECT_TRUE(hasWhiteLetters());
    touch->release();
    ASSERT_NE(alert(), nullptr);
}

TEST_F(ClassicButtonLook, isItselfAgainWhenTheFingerHasLeft)
{
    openPackage();
    const QImage before = drawn();
    // At its left edge, so that it is left before the table takes the finger for a drag.
    const QPointF inside = touch->itemFor(button())->mapToScene({ 3, 15 });
    touch->press(inside);
    EXPECT_GT(difference(drawn(), before), Rounding);
    touch->moveTo(inside - QPointF(7, 0));
    EXPECT_TRUE(touch->waitUntil([&] { return drawn() == before; })) << "moves of a finger come with the next frame";
    touch->release();
    EXPECT_EQ(drawn(), before);
}

TEST_F(ClassicButtonLook, isHalfSeenThroughWhileItIsDisabled)
{
    openPackage();
    const QImage enabled = besideTheTitle();
    const QPoint place = touch->itemFor(button())->mapToScene({ 7, 7 }).toPoint();
    button()->setHidden(true);
    const QImage behind = touch->picture().copy({ place, enabled.size() });
    ASSERT_GT(difference(behind, enabled), 20);
    button()->setHidden(false);
    button()->setEnabled(false);
    EXPECT_LE(difference(besideTheTitle(), mixed(behind, enabled, 0.5)), Rounding);
    EXPECT_FALSE(hasWhiteLetters());
}
