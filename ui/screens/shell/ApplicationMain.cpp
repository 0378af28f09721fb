#include "ui/screens/shell/ApplicationMain.h"

#include "actions/process/DescriptorLimit.h"
#include "actions/process/SignalDispositions.h"
#include "catalog/sources/JsonSourceStore.h"
#include "resources/VeskResources.h"
#include "ui/kit/text/FontsAhead.h"
#include "ui/screens/shell/AppDelegate.h"
#include "ui/screens/shell/ApplicationService.h"
#include "ui/screens/shell/DisplayFailure.h"
#include "ui/screens/shell/InstanceLock.h"
#include "ui/screens/shell/SecondStart.h"

#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>

#include <cstdio>
#include <optional>

namespace {

constexpr int CannotReachTheFirst = 2;

// None when this program is to open a window; the status to end with when another one works on the settings file.
std::optional<int> statusBesideAnother(InstanceLock& lock)
{
    if (lock.acquire() != InstanceLock::State::HeldByAnother)
        return std::nullopt;
    switch (raiseTheFirst(lock)) {
    case SecondStart::TakesItsPlace:
        return std::nullopt;
    case SecondStart::RaisedTheFirst:
        return 0;
    case SecondStart::CannotReachIt:
        break;
    }
    fprintf(stderr, "vesk: it runs already on %s, and its window cannot be raised: it answers on no session bus.\n",
        qUtf8Printable(lock.settingsFile()));
    return CannotReachTheFirst;
}

// Looking for an icon reads whole themes, which takes a good part of what there is until the first picture stands.
void setIconOnceSeen(QQuickWindow& window)
{
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window,
        [] { QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.vesk.Vesk"))); },
        Qt::SingleShotConnection);
}

} // namespace

int applicationMain(int argc, char** argv)
{
    SignalDispositions::noteAtStart();
    DescriptorLimit::raiseAtStart();
    InstanceLock lock(JsonSourceStore::standardPath());
    if (const auto status = statusBesideAnother(lock))
        return *status;

    std::optional<DisplayFailure> displayFailure(std::in_place);
    QGuiApplication application(argc, argv);
    const kit::FontsAhead fonts;
    displayFailure.reset();
    QGuiApplication::setApplicationName(QStringLiteral("vesk"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Vesk"));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.vesk.Vesk"));

    initialiseResources();

    AppDelegate delegate;
    DesktopPreferences preferences(QGuiApplication::platformName());
    delegate.follow(preferences);
    delegate.didFinishLaunchingWithOptions();
    setIconOnceSeen(*delegate.window()->quickWindow());

    ApplicationService service(QDBusConnection::sessionBus(), lock.settingsFile());
    QObject::connect(&service, &ApplicationService::activated, &delegate, &AppDelegate::bringToFront);
    service.announce();
    return QGuiApplication::exec();
}
