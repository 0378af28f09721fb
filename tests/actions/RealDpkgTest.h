#pragma once

#include "tests/actions/DpkgSandbox.h"
#include "tests/actions/RecordingHandlers.h"
#include "tests/support/LoopbackServer.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// The queue with the real dpkg, in a sandbox with a package database of the test's own. Only where INSTALLER_PROBE is
// defined.
class RealDpkg : public testing::Test
{
protected:
    void SetUp() override
    {
        const QString missing = DpkgSandbox::whatIsMissing();
        ASSERT_TRUE(missing.isEmpty()) << missing.toStdString();
        m_handlers.install({ QStringLiteral("sileo") });
    }

    void offer(const TestArchive& archive, const QByteArray& folder = "/debs/")
    {
        const QByteArray bytes = archive.build();
        ASSERT_GE(bytes.size(), 1000);
        m_server.serve(pathOf(archive, folder), bytes);
    }

    static QByteArray pathOf(const TestArchive& archive, const QByteArray& folder = "/debs/")
    {
        return folder + (archive.identifier + u'_' + archive.version).toUtf8() + "_iphoneos-arm.deb";
    }

    static TestArchive archive(const QString& identifier, const QString& version, const QString& postinst = {})
    {
        return { .identifier = identifier,
            .version = version,
            .files = { { QStringLiteral("/opt/") + identifier + QStringLiteral("/version"), version.toUtf8() } },
            .postinst = postinst };
    }

    // The words are identifier, version and action of each entry; the answer is each entry's line. The program stays
    // until that many URLs were handed over: it takes the handlers with it when it ends.
    QStringList run(const QStringList& words, int handOffs = 0, const QStringList& options = {})
    {
        return runBehind({}, words, handOffs, options);
    }

    // The same by a command that starts the one that follows it.
    QStringList runBehind(
        const QStringList& starter, const QStringList& words, int handOffs = 0, const QStringList& options = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        m_handlers.enter(environment);
        const auto result = m_sandbox.run(
            starter + QStringList{ QStringLiteral(INSTALLER_PROBE), QStringLiteral("run"), m_server.url() } + words,
            environment, options, [&] { m_handlers.urls(handOffs); });
        EXPECT_EQ(result.exitCode, 0) << result.output.toStdString();
        return result.output.split(u'\n', Qt::SkipEmptyParts);
    }

    QString installedFile(const QString& identifier) const
    {
        QFile file(m_sandbox.opt() + u'/' + identifier + QStringLiteral("/version"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QTemporaryDir m_directory;
    DpkgSandbox m_sandbox{ m_directory.path() };
    RecordingHandlers m_handlers{ m_directory.filePath(QStringLiteral("desktop")) };
    LoopbackServer m_server;
};
