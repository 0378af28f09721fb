#pragma once

#include "actions/AdministratorInstall.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

// A pkexec of the test's own: it notes its arguments and what it is given on standard input, and exits as it is told
// to.
class FakePkexec
{
public:
    FakePkexec()
    {
        writeProgram(programs().helperPath, QStringLiteral("exit 99"));
        exitsWith(0);
    }

    AdministratorPrograms programs() const
    {
        return { .pkexecPath = path(QStringLiteral("pkexec")), .helperPath = path(QStringLiteral("helper")) };
    }

    void exitsWith(int status) const
    {
        writeProgram(programs().pkexecPath,
            QStringLiteral("echo \"$*\" >>'%1'\ncat >>'%2'\nexit %3")
                .arg(path(QStringLiteral("calls")), path(QStringLiteral("input")))
                .arg(status));
    }

    // The arguments of each call.
    QStringList calls() const
    {
        return QString::fromUtf8(contents(QStringLiteral("calls"))).split(u'\n', Qt::SkipEmptyParts);
    }

    // What all calls were given, one after the other.
    QByteArray input() const { return contents(QStringLiteral("input")); }

    QString call(const QByteArray& digest) const
    {
        return QStringLiteral("--disable-internal-agent %1 %2").arg(programs().helperPath, QString::fromLatin1(digest));
    }

    QString path(const QString& name) const { return m_directory.filePath(name); }

private:
    static void writeProgram(const QString& path, const QString& script)
    {
        QFile::remove(path);
        QFile file(path);
        if (file.open(QFile::WriteOnly))
            file.write("#!/bin/sh\n" + script.toUtf8() + '\n');
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QByteArray contents(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_directory;
};
