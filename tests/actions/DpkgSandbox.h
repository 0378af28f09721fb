#pragma once

#include <QList>
#include <QPair>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <functional>

// A place where dpkg is the real one and the machine's own packages are out of reach: a private package database, /opt,
// log and home under one directory, entered through user namespaces.
class DpkgSandbox
{
public:
    struct Result
    {
        int exitCode = -1;
        QString output;
    };

    // Seeds the directory. It must stay as long as the sandbox is used.
    explicit DpkgSandbox(const QString& directory);

    // Empty when processes can enter sandboxes on this machine; otherwise says what is missing.
    static QString whatIsMissing();

    // Runs the program in the sandbox, as root there. The extra options are bwrap's. What is to be done during the run
    // is called once it has begun; the program's standard input ends after that. Whatever the program started ends with
    // it.
    Result run(const QStringList& command, const QProcessEnvironment& environment, const QStringList& options = {},
        const std::function<void()>& duringRun = {}) const;
    Result run(const QStringList& command) const;

    // "install ok installed 1.0" and the like; empty when the database does not know the package.
    QString statusOf(const QString& package) const;
    // The place that is /opt in the sandbox.
    QString opt() const { return path(QStringLiteral("opt")); }
    QString path(const QString& name) const { return m_directory + u'/' + name; }

private:
    QStringList entering(const QStringList& options) const;

    QString m_directory;
};

// A package of the test's own making.
struct TestArchive
{
    QString identifier;
    QString version;
    // Path to contents; under /opt.
    QList<QPair<QString, QByteArray>> files;
    // A shell script that runs after unpacking; none when empty.
    QString postinst;
    // What has to be installed before it; nothing when empty.
    QString depends;

    // Builds it with dpkg-deb. Empty when that fails.
    QByteArray build() const;
};
