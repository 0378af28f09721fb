// A program on the user's own sources, for tests of what happens when a process ends: refreshes all of them, prints
// "finished" when that is done, quits as soon as its standard input ends, and prints the name of a thread that
// outlives the application. With the argument "names" it prints those of the packages before "finished", in their
// order.
#include "catalog/RepoManager.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QSocketNotifier>
#include <QThread>

#include <cstdio>
#include <unistd.h>

namespace {

void printNames()
{
    for (const VeskPackagePtr& package : RepoManager::sharedManager()->packagesSortedByName())
        std::puts(package->name().toUtf8().constData());
}

int runApplication(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    RepoManager::sharedManager()->refreshAllWithCompletion([] {
        if (QCoreApplication::arguments().contains(QStringLiteral("names")))
            printNames();
        std::puts("finished");
        std::fflush(stdout);
    });
    QSocketNotifier inputEnd(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&inputEnd, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    return QCoreApplication::exec();
}

// Those of pools do not count: they end in order with the process.
QByteArray nameOfAnotherThread()
{
    for (const QString& thread : QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(QStringLiteral("/proc/self/task/%1/comm").arg(thread));
        const QByteArray name = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        if (thread.toInt() != getpid() && !name.isEmpty() && !name.startsWith("Thread (pooled)"))
            return name;
    }
    return {};
}

} // namespace

int main(int argc, char** argv)
{
    const int code = runApplication(argc, argv);
    // A thread that was waited for may still be on its very last steps.
    QByteArray left = nameOfAnotherThread();
    for (const QDeadlineTimer patience(2000); !left.isEmpty() && !patience.hasExpired(); left = nameOfAnotherThread())
        QThread::msleep(1);
    if (!left.isEmpty())
        std::printf("left: %s", left.constData());
    return code;
}
