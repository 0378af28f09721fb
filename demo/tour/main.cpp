// Drives the program's own window, headless, by touches through its main job.
//
// usage: vesk-tour DIRECTORY    (in the sandbox: its sources must all be on 127.0.0.1)
#include "catalog/sources/JsonSourceStore.h"
#include "demo/tour/Chapters.h"
#include "demo/tour/Tour.h"
#include "resources/VeskResources.h"
#include "ui/screens/shell/AppDelegate.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTextStream>
#include <QUrl>

namespace {

constexpr int UsageError = 64;
constexpr int NotInSandbox = 69;

// A screen with room for the whole window; its pixels are counted before the scale.
QByteArray platformWithPinnedScreen(const QTemporaryDir& directory)
{
    QFile configuration(directory.filePath(QStringLiteral("screen.json")));
    if (!configuration.open(QIODevice::WriteOnly))
        return {};
    configuration.write(R"({"screens": [{"name": "tour", "x": 0, "y": 0, "width": 2560, "height": 2048}]})");
    return "offscreen:configfile=" + configuration.fileName().toLocal8Bit();
}

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

int makeTour(const QString& directory)
{
    AppDelegate delegate;
    delegate.didFinishLaunchingWithOptions();
    TouchDriver touch(*delegate.window());
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
    qputenv("QT_QPA_PLATFORM", platformWithPinnedScreen(scratch));
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    // The same places as the program: its source list is found under its name.
    QGuiApplication::setApplicationName(QStringLiteral("vesk"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Vesk"));
    initialiseResources();

    QTextStream errors(stderr);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        errors << "usage: vesk-tour DIRECTORY" << Qt::endl;
        return UsageError;
    }
    if (!onlyLoopbackSources()) {
        errors << "The stored sources are not all on 127.0.0.1; make the tour by ./run --tour DIRECTORY." << Qt::endl;
        return NotInSandbox;
    }
    keepRequestsOnThisMachine();
    return makeTour(QString::fromLocal8Bit(argv[1]));
}
