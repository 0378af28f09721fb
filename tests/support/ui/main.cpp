// The main of every test that needs the interface: the offscreen platform, the drawn images, and no animations.
#include "resources/VeskResources.h"
#include "ui/kit/paint/Animations.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    initialiseResources();
    kit::Animations::setEnabled(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
