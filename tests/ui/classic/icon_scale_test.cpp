// On a screen of twice as many pixels, which a program has from its start on.
#include "tests/support/LoopbackServer.h"
#include "tests/support/TestImage.h"
#include "tests/ui/classic/IconNetwork.h"
#include "tests/ui/classic/TestPackage.h"
#include "ui/classic/ClassicUI.h"

#include <QGuiApplication>
#include <QTest>
#include <gtest/gtest.h>

TEST(PackageIcon, isDecodedForTheScaleOfTheScreen)
{
    LoopbackServer server;
    const IconNetwork network;
    server.serve("/icon.png", pngOf(Qt::red, { 120, 60 }));
    const VeskPackagePtr package = makePackage(QStringLiteral("Alpha"));
    package->setIconURLString(server.url(QStringLiteral("/icon.png")));
    kit::ImageView view;
    ClassicUI::loadIconForPackage(*package, view);
    const kit::Image placeholder = view.image();
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.image() != placeholder; }, 20000));
    EXPECT_EQ(view.image().size(), QSizeF(60, 30));
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", "2");
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
