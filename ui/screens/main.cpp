#include "AppDelegate.h"
#include "DesktopTextScale.h"
#include "TextScale.h"
#include "VeskResources.h"

#include <QGuiApplication>

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("vesk"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Vesk"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.vesk.Vesk"));

    initialiseResources();
    TextScale::set(desktopTextScale(QGuiApplication::platformName()));

    AppDelegate delegate;
    delegate.didFinishLaunchingWithOptions();
    return QGuiApplication::exec();
}
