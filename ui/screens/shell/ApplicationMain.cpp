#include "ui/screens/shell/ApplicationMain.h"

#include "actions/SignalDispositions.h"
#include "resources/VeskResources.h"
#include "ui/screens/shell/AppDelegate.h"
#include "ui/screens/shell/DisplayFailure.h"

#include <QGuiApplication>
#include <QIcon>

#include <optional>

int applicationMain(int argc, char** argv)
{
    SignalDispositions::noteAtStart();
    std::optional<DisplayFailure> displayFailure(std::in_place);
    QGuiApplication application(argc, argv);
    displayFailure.reset();
    QGuiApplication::setApplicationName(QStringLiteral("vesk"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Vesk"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.vesk.Vesk"));
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.vesk.Vesk")));

    initialiseResources();

    DesktopPreferences preferences(QGuiApplication::platformName());
    AppDelegate delegate;
    delegate.follow(preferences);
    delegate.didFinishLaunchingWithOptions();
    return QGuiApplication::exec();
}
