// The window on the screens of several devices, a process for each: Qt takes screen and scale at its start.
//
// usage: kit_screens_test SUITE
#include "resources/VeskResources.h"
#include "tests/support/ui/OffscreenPlatform.h"
#include "tests/ui/kit/window/KitWindowTest.h"
#include "ui/kit/paint/Animations.h"

#include <QGuiApplication>
#include <QScreen>

#include <array>
#include <string>

namespace {

class OnAScreen : public KitWindowTest
{
protected:
    OnAScreen() { grabbed(); }

    QSize available() const { return quick()->screen()->availableSize(); }
    bool isMaximised() const { return quick()->windowStates().testFlag(Qt::WindowMaximized); }
    bool fitsWithItsFrame() const
    {
        const QSize frame = quick()->frameGeometry().size();
        return frame.boundedTo(available()) == frame;
    }
    double bottomOfTheTabs() const
    {
        const QQuickItem& tab = *itemDrawnBy(QLatin1String("TabButton"));
        return tab.mapToScene({ 0, tab.height() }).y();
    }
};

class OnALaptop : public OnAScreen
{
};
class OnALaptopAtScale1_5 : public OnAScreen
{
};
class OnALargePhone : public OnAScreen
{
};
class OnASmallTablet : public OnAScreen
{
};

struct Screen
{
    const char* suite;
    const char* scale;
    // In pixels.
    QSize size;
};

constexpr std::array<Screen, 4> screens{ {
    { "OnALaptop", "1", QSize(1366, 768) },
    { "OnALaptopAtScale1_5", "1.5", QSize(1920, 1100) },
    { "OnALargePhone", "1", QSize(480, 1040) },
    { "OnASmallTablet", "1", QSize(481, 1040) },
} };

} // namespace

TEST_F(OnALaptop, fitsWithItsFrameIntoALowScreen)
{
    EXPECT_FALSE(isMaximised());
    EXPECT_EQ(quick()->width(), 390);
    EXPECT_GT(quick()->height(), 700);
    EXPECT_TRUE(fitsWithItsFrame()) << quick()->frameGeometry().height() << " of " << available().height();
    EXPECT_EQ(bottomOfTheTabs(), quick()->height());
}

TEST_F(OnALaptopAtScale1_5, fitsWithItsFrameIntoALowScreen)
{
    EXPECT_EQ(available().height(), 733);
    EXPECT_GT(quick()->height(), 680);
    EXPECT_TRUE(fitsWithItsFrame()) << quick()->frameGeometry().height() << " of " << available().height();
    EXPECT_EQ(bottomOfTheTabs(), quick()->height());
}

TEST_F(OnALargePhone, fillsTheScreen)
{
    EXPECT_TRUE(isMaximised());
    EXPECT_EQ(bottomOfTheTabs(), quick()->height());
}

TEST_F(OnASmallTablet, hasASizeOfItsOwn)
{
    EXPECT_FALSE(isMaximised());
    EXPECT_EQ(quick()->size(), QSize(390, 844));
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const auto isNamed = [&](const Screen& screen) { return argc > 1 && qstrcmp(argv[1], screen.suite) == 0; };
    const auto* const found = std::find_if(screens.begin(), screens.end(), isNamed);
    if (found == screens.end())
        return 64;
    const QTemporaryDir scratch;
    qputenv("QT_SCALE_FACTOR", found->scale);
    qputenv("QT_QPA_PLATFORM", platformWithScreen(found->size, scratch));
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    kit::Animations::setEnabled(false);
    initialiseResources();
    testing::GTEST_FLAG(filter) = std::string(found->suite) + ".*";
    return RUN_ALL_TESTS();
}
