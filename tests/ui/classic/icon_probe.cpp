// A program that asks for the icon at the URL of its first argument, for tests of what happens when a process ends. It
// quits as soon as its standard input ends, and prints "outlived" when the icons' network is still at work by the time
// that the application ends what depends on it. Exits with 3 when it was not at work before.
#include "ui/classic/ClassicUI.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

bool isNetworkAtWork()
{
    const QStringList threads = QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::any_of(threads.begin(), threads.end(), [](const QString& thread) {
        QFile file(QStringLiteral("/proc/self/task/%1/comm").arg(thread));
        return file.open(QIODevice::ReadOnly) && file.readAll().startsWith("QNetworkAccess");
    });
}

// A thread that was waited for may still be on its very last steps.
bool endsItsNetwork()
{
    for (const QDeadlineTimer patience(2000); isNetworkAtWork() && !patience.hasExpired();)
        QThread::msleep(1);
    return !isNetworkAtWork();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    // The routine that was added first is called last.
    qAddPostRoutine([] {
        if (!endsItsNetwork())
            std::puts("outlived");
    });
    VeskPackage package;
    package.setIconURLString(QString::fromLocal8Bit(argv[1]));
    kit::ImageView view;
    ClassicUI::loadIconForPackage(package, view);
    QSocketNotifier inputEnd(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&inputEnd, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    const int code = QGuiApplication::exec();
    return isNetworkAtWork() ? code : 3;
}
