#include "ui/screens/shell/ApplicationMain.h"

#include "actions/SignalDispositions.h"
#include "resources/VeskResources.h"
#include "ui/kit/paint/TextScale.h"
#include "ui/screens/shell/AppDelegate.h"
#include "ui/screens/shell/DesktopTextScale.h"

#include <QGuiApplication>

int applicationMain(int argc, char** argv)
{
    SignalDispositions::noteAtStart();
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("vesk"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Vesk"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.vesk.Vesk"));

    initialiseResources();
    kit::TextScale::set(desktopTextScale(QGuiApplication::platformName()));

    AppDelegate delegate;
    delegate.didFinishLaunchingWithOptions();
    return QGuiApplication::exec();
}
