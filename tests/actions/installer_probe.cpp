// A program with the real surroundings, for tests that must set the environment of a whole process:
//   installer_probe package SOURCE IDENTIFIER            hands a package over
//   installer_probe repository SOURCE                    hands a source over
//   installer_probe can URL                              prints "yes" when the URL has a handler, else "no"
//   installer_probe download SOURCE IDENTIFIER VERSION   prints the path of the archive, then the growth of the peak of
//                                                        this process's memory in KiB
//   installer_probe run SOURCE [IDENTIFIER VERSION ACTION]...   runs a queue, prints a line with each entry's status
//                                                        and stays until its standard input ends
//   installer_probe quit SOURCE IDENTIFIER VERSION       starts a run and quits as soon as its standard input ends
#include "actions/DesktopURLOpener.h"
#include "actions/PackageInstaller.h"
#include "actions/process/DescriptorLimit.h"

#include <QCoreApplication>
#include <QFile>
#include <QSocketNotifier>
#include <QTextStream>

#include <cstdio>
#include <unistd.h>

namespace {

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

VeskPackagePtr package(const QString& source, const QString& identifier, const QString& version)
{
    auto result = std::make_shared<VeskPackage>();
    result->setRepository(VeskRepository::repositoryWithURLString(source, {}));
    result->setPackageID(identifier);
    result->setVersion(version);
    return result;
}

// In KiB.
qint64 peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : status.readAll().split('\n')) {
            if (line.startsWith("VmHWM:"))
                return line.mid(6).simplified().split(' ').constFirst().toLongLong();
        }
    }
    return -1;
}

void download(const QStringList& words)
{
    const qint64 before = peakMemory();
    out() << PackageInstaller::sharedInstaller().downloadPackage(package(words[0], words[1], words[2])) << '\n';
    out() << peakMemory() - before << '\n';
}

int run(const QStringList& words)
{
    PackageInstaller& installer = PackageInstaller::sharedInstaller();
    for (qsizetype index = 1; index + 2 < words.size(); index += 3)
        installer.enqueuePackage(package(words[0], words[index], words[index + 1]), words[index + 2].toLongLong());
    installer.executeQueueWithCompletion([] { QCoreApplication::quit(); });
    QCoreApplication::exec();
    for (const QueueEntryPtr& entry : installer.queue())
        out() << entry->package()->packageID() << ' ' << entry->action() << ' ' << entry->status() << '\n';
    out().flush();
    while (std::getchar() != EOF) { }
    return 0;
}

int quit(const QStringList& words)
{
    PackageInstaller& installer = PackageInstaller::sharedInstaller();
    installer.enqueuePackage(package(words[0], words[1], words[2]), QueueActionInstall);
    installer.executeQueueWithCompletion([] { out() << "finished\n"; });
    QSocketNotifier inputEnd(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&inputEnd, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    DescriptorLimit::raiseAtStart();
    const QCoreApplication application(argc, argv);
    QStringList words = QCoreApplication::arguments().mid(1);
    const QString verb = words.isEmpty() ? QString() : words.takeFirst();
    PackageInstaller& installer = PackageInstaller::sharedInstaller();
    if (verb == QStringLiteral("package") && words.size() == 2)
        installer.openPackageInPackageManager(package(words[0], words[1], {}));
    else if (verb == QStringLiteral("repository") && words.size() == 1)
        installer.openRepositoryInPackageManager(VeskRepository::repositoryWithURLString(words[0], {}));
    else if (verb == QStringLiteral("can") && words.size() == 1)
        out() << (DesktopURLOpener().canOpenURL(words[0]) ? "yes" : "no") << '\n';
    else if (verb == QStringLiteral("download") && words.size() == 3)
        download(words);
    else if (verb == QStringLiteral("run") && !words.isEmpty())
        return run(words);
    else if (verb == QStringLiteral("quit") && words.size() == 3)
        return quit(words);
    else
        return 64;
    return 0;
}
