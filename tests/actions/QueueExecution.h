#pragma once

#include "actions/PackageInstaller.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/RecordingOpener.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>

inline constexpr int longestWait = 20000;

// An installer with a server and a dpkg of the test's own.
class QueueExecution : public testing::Test
{
protected:
    QueueExecution()
    {
        writeDpkg(QStringLiteral("exit 0"));
        InstallerSurroundings surroundings{
            .dpkgPath = path(QStringLiteral("dpkg")),
            .archiveDirectories = { path(QStringLiteral("archives")) },
            .urlOpener = std::make_unique<RecordingOpener>(opener),
        };
        surroundings.handOffDelay = std::chrono::milliseconds(0);
        installer = std::make_unique<PackageInstaller>(std::move(surroundings));
    }

    QString path(const QString& name) const { return m_directory.filePath(name); }

    // A dpkg that notes its arguments, one line a call, and then does what the script says.
    void writeDpkg(const QString& script) const
    {
        QFile::remove(path(QStringLiteral("dpkg")));
        QFile file(path(QStringLiteral("dpkg")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(
            QStringLiteral("#!/bin/sh\necho \"$*\" >> '%1'\n%2\n").arg(path(QStringLiteral("calls")), script).toUtf8());
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QStringList dpkgCalls() const
    {
        QFile file(path(QStringLiteral("calls")));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }

    QString archive(const QString& identifier) const
    {
        return path(QStringLiteral("archives/")) + identifier + QStringLiteral("_1_iphoneos-arm.deb");
    }

    static QByteArray served(const QString& identifier)
    {
        return "/debs/" + identifier.toUtf8() + "_1_iphoneos-arm.deb";
    }

    VeskPackagePtr package(const QString& identifier) const
    {
        auto result = std::make_shared<VeskPackage>();
        result->setRepository(VeskRepository::repositoryWithURLString(server.url(), {}));
        result->setPackageID(identifier);
        result->setVersion(QStringLiteral("1"));
        return result;
    }

    // The source offers the package's archive.
    QueueEntryPtr enqueueOffered(const QString& identifier, qint64 action = QueueActionInstall)
    {
        server.serve(served(identifier), QByteArray(1500, 'd'));
        return enqueueMissing(identifier, action);
    }

    QueueEntryPtr enqueueMissing(const QString& identifier, qint64 action = QueueActionInstall)
    {
        installer->enqueuePackage(package(identifier), action);
        return installer->queue().back();
    }

    void start()
    {
        installer->executeQueueWithCompletion([this] { ++completions; });
    }

    bool waitForCompletions(int count)
    {
        return QTest::qWaitFor([&] { return completions >= count; }, longestWait);
    }

    void run()
    {
        const int before = completions;
        start();
        ASSERT_TRUE(waitForCompletions(before + 1));
    }

    QTemporaryDir m_directory;
    LoopbackServer server;
    OpenerRecord opener;
    int completions = 0;
    std::unique_ptr<PackageInstaller> installer;
};

inline const QString one = QStringLiteral("one");
inline const QString two = QStringLiteral("two");
inline const QString three = QStringLiteral("three");

inline QString handOff(const QString& identifier)
{
    return QStringLiteral("sileo://package/") + identifier;
}
