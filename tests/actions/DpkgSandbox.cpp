#include "tests/actions/DpkgSandbox.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <unistd.h>

namespace {

constexpr int longestRun = 60000;

bool write(const QString& name, const QByteArray& contents)
{
    QDir().mkpath(QFileInfo(name).path());
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
}

DpkgSandbox::Result runProgram(const QString& program, const QStringList& arguments,
    const QProcessEnvironment& environment, const std::function<void()>& duringRun = {})
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (duringRun && process.waitForStarted())
        duringRun();
    process.closeWriteChannel();
    if (!process.waitForFinished(longestRun) || process.exitStatus() != QProcess::NormalExit) {
        process.kill();
        process.waitForFinished();
        return { .exitCode = -1, .output = process.errorString() + QString::fromUtf8(process.readAll()) };
    }
    return { .exitCode = process.exitCode(), .output = QString::fromUtf8(process.readAll()) };
}

const QStringList bareSandbox = { QStringLiteral("--unshare-user"), QStringLiteral("--uid"), QStringLiteral("0"),
    QStringLiteral("--gid"), QStringLiteral("0"), QStringLiteral("--unshare-pid"), QStringLiteral("--unshare-ipc"),
    QStringLiteral("--die-with-parent"), QStringLiteral("--ro-bind"), QStringLiteral("/"), QStringLiteral("/"),
    QStringLiteral("--dev"), QStringLiteral("/dev"), QStringLiteral("--proc"), QStringLiteral("/proc") };

} // namespace

// A package that owns the shared directories keeps dpkg from removing /opt with the last package under it.
DpkgSandbox::DpkgSandbox(const QString& directory)
    : m_directory(directory)
{
    for (const char* const name : { "dpkg/info", "dpkg/updates", "dpkg/triggers", "log", "opt", "home", "tmp" })
        QDir().mkpath(path(QLatin1String(name)));
    write(path(QStringLiteral("dpkg/info/format")), "1\n");
    write(path(QStringLiteral("dpkg/info/base-files.list")), "/.\n/etc\n/opt\n/usr\n/var\n");
    write(path(QStringLiteral("dpkg/available")), "");
    write(path(QStringLiteral("dpkg/status")),
        "Package: base-files\nStatus: install ok installed\nPriority: required\nSection: admin\n"
        "Maintainer: Vesk <vesk@example.org>\nArchitecture: all\nVersion: 1\nDescription: shared directories\n\n");
}

QString DpkgSandbox::whatIsMissing()
{
    const Result result = runProgram(
        QStringLiteral("bwrap"), bareSandbox + QStringList{ QStringLiteral("--"), QStringLiteral("/bin/true") }, {});
    if (result.exitCode == 0)
        return {};
    return QStringLiteral("No sandbox can be made here, so the real dpkg cannot be tried. Needed are the program bwrap "
                          "(package bubblewrap) and user namespaces open to this user. Trying it gave: ")
        + result.output;
}

QStringList DpkgSandbox::entering(const QStringList& options) const
{
    QStringList result = bareSandbox;
    result += { QStringLiteral("--bind"), m_directory, m_directory };
    const QList<QStringList> binds = { { QStringLiteral("dpkg"), QStringLiteral("/var/lib/dpkg") },
        { QStringLiteral("log"), QStringLiteral("/var/log") }, { QStringLiteral("opt"), QStringLiteral("/opt") } };
    for (const QStringList& bind : binds)
        result += { QStringLiteral("--bind"), path(bind[0]), bind[1] };
    return result + options + QStringList{ QStringLiteral("--") };
}

DpkgSandbox::Result DpkgSandbox::run(const QStringList& command, const QProcessEnvironment& environment,
    const QStringList& options, const std::function<void()>& duringRun) const
{
    QProcessEnvironment inside = environment;
    inside.insert(QStringLiteral("HOME"), path(QStringLiteral("home")));
    inside.insert(QStringLiteral("XDG_CACHE_HOME"), path(QStringLiteral("home/.cache")));
    inside.insert(QStringLiteral("TMPDIR"), path(QStringLiteral("tmp")));
    // dpkg wants the administrator's programs to be found.
    inside.insert(
        QStringLiteral("PATH"), QStringLiteral("/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin"));
    return runProgram(QStringLiteral("bwrap"), entering(options) + command, inside, duringRun);
}

DpkgSandbox::Result DpkgSandbox::run(const QStringList& command) const
{
    return run(command, QProcessEnvironment::systemEnvironment());
}

QString DpkgSandbox::statusOf(const QString& package) const
{
    const Result result = run(
        { QStringLiteral("dpkg-query"), QStringLiteral("-W"), QStringLiteral("-f=${Status} ${Version}"), package });
    return result.exitCode == 0 ? result.output : QString();
}

QByteArray TestArchive::build() const
{
    const QTemporaryDir directory;
    const QString root = directory.filePath(QStringLiteral("root"));
    const QString archive = directory.filePath(QStringLiteral("archive.deb"));
    const QString control = QStringLiteral("Package: %1\nVersion: %2\nArchitecture: all\n"
                                           "Maintainer: Vesk <vesk@example.org>\nDescription: made for a test\n");
    const QString dependency = depends.isEmpty() ? QString() : QStringLiteral("Depends: %1\n").arg(depends);
    write(root + QStringLiteral("/DEBIAN/control"), (control.arg(identifier, version) + dependency).toUtf8());
    for (const auto& [name, contents] : files)
        write(root + name, contents);
    if (!postinst.isEmpty()) {
        const QString script = root + QStringLiteral("/DEBIAN/postinst");
        write(script, "#!/bin/sh\n" + postinst.toUtf8() + "\n");
        QFile::setPermissions(script, QFile::Permissions(0x7755));
    }
    // Without compression even a small package is longer than the shortest that is accepted.
    runProgram(QStringLiteral("dpkg-deb"),
        { QStringLiteral("--root-owner-group"), QStringLiteral("-Znone"), QStringLiteral("--build"), root, archive },
        QProcessEnvironment::systemEnvironment());
    QFile file(archive);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
