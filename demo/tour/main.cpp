// Drives the program's own window, headless, by touches or by a mouse through its main job.
//
// usage: vesk-tour DIRECTORY [--mouse]    (in the sandbox: its sources must all be on 127.0.0.1)
#include "catalog/sources/JsonSourceStore.h"
#include "demo/tour/Chapters.h"
#include "demo/tour/Tour.h"
#include "resources/VeskResources.h"
#include "tests/support/ui/OffscreenPlatform.h"
#include "ui/screens/shell/AppDelegate.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTextStream>
#include <QUrl>

namespace {

constexpr int UsageError = 64;
constexpr int NotInSandbox = 69;

// In pixels, before the scale.
constexpr QSize roomForTheWholeWindow(2560, 2048);

// The program stores and refreshes sources of the whole world when it finds none of the user's.
bool onlyLoopbackSources()
{
    const auto sources = JsonSourceStore(JsonSourceStore::standardPath()).sources();
    if (!sources || sources->empty())
        return false;
    return std::all_of(sources->begin(), sources->end(),
        [](const StoredSource& source) { return QUrl(source.url).host() == QLatin1String("127.0.0.1"); });
}

// Whatever goes wrong on the way: requests to anywhere else end at a port of this machine where nobody listens.
void keepRequestsOnThisMachine()
{
    for (const char* proxy : { "http_proxy", "https_proxy" })
        qputenv(proxy, "http://127.0.0.1:9");
    qputenv("no_proxy", "127.0.0.1");
}

int makeTour(const QString& directory, TouchDriver::Hand hand)
{
    Tour::holdSource();
    AppDelegate delegate;
    delegate.didFinishLaunchingWithOptions();
    TouchDriver touch(*delegate.window(), hand);
    Tour tour(touch, QDir(directory));
    walkThrough(tour);
    QTextStream(stdout) << tour.steps() << " steps, " << tour.failedSteps() << " failed" << Qt::endl;
    return tour.succeeded() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir scratch;
    qputenv("QT_SCALE_FACTOR", "2");
    qputenv("QT_QPA_PLATFORM", platformWithScreen(roomForTheWholeWindow, scratch));
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    // The same places as the program: its source list is found under its name.
    QGuiApplication::setApplicationName(QStringLiteral("vesk"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Vesk"));
    initialiseResources();

    QTextStream errors(stderr);
    const bool isByMouse = argc == 3 && qstrcmp(argv[2], "--mouse") == 0;
    if ((argc != 2 && !isByMouse) || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        errors << "usage: vesk-tour DIRECTORY [--mouse]" << Qt::endl;
        return UsageError;
    }
    if (!onlyLoopbackSources()) {
        errors << "The stored sources are not all on 127.0.0.1; make the tour by ./run --tour DIRECTORY." << Qt::endl;
        return NotInSandbox;
    }
    keepRequestsOnThisMachine();
    return makeTour(QString::fromLocal8Bit(argv[1]), isByMouse ? TouchDriver::Hand::Mouse : TouchDriver::Hand::Finger);
}
