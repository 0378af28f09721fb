// The end of a process while a refresh is under way.
#include "catalog/sources/JsonSourceStore.h"
#include "tests/support/LoopbackServer.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr int longestWait = 60000;

class CatalogProcess : public testing::Test
{
protected:
    void start(const QStringList& arguments = {}, const QString& language = {})
    {
        JsonSourceStore store(m_directory.filePath(QStringLiteral("vesk/defaults.json")));
        ASSERT_TRUE(store.setSources({ { m_server.url(QStringLiteral("/1")), QStringLiteral("1"), true },
            { m_server.url(QStringLiteral("/2")), QStringLiteral("2"), true } }));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_directory.path());
        if (!language.isEmpty())
            environment.insert(QStringLiteral("LC_ALL"), language);
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start(QStringLiteral(CATALOG_PROBE), arguments);
        ASSERT_TRUE(m_process.waitForStarted());
    }

    bool waitFor(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, longestWait); }

    // What the process printed until it ended, which it does without delay.
    QString end()
    {
        QElapsedTimer clock;
        clock.start();
        m_process.closeWriteChannel();
        EXPECT_TRUE(m_process.waitForFinished(longestWait));
        EXPECT_LT(clock.elapsed(), longestWait / 4);
        EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(m_process.exitCode(), 0);
        return QString::fromUtf8(m_process.readAll());
    }

    QTemporaryDir m_directory;
    LoopbackServer m_server;
    QProcess m_process;
};

} // namespace

TEST_F(CatalogProcess, hasTheNamesInTheOrderOfThePersonsLanguage)
{
    m_server.serve("/1/Packages.bz2", "Package: o\nName: \xc3\x96rn\n\nPackage: z\nName: Zebra\n\n");
    const std::pair<QString, QString> orders[]
        = { { QStringLiteral("sv_SE.UTF-8"), QStringLiteral("Zebra\nÖrn\nfinished\n") },
              { QStringLiteral("de_DE.UTF-8"), QStringLiteral("Örn\nZebra\nfinished\n") } };
    for (const auto& [language, names] : orders) {
        start({ QStringLiteral("names") }, language);
        QString printed;
        ASSERT_TRUE(waitFor([&] {
            printed += QString::fromUtf8(m_process.readAll());
            return printed.contains(QStringLiteral("finished"));
        }));
        EXPECT_TRUE(printed.endsWith(names)) << printed.toStdString();
        end();
    }
}

TEST_F(CatalogProcess, endsCleanlyBeforeAnAnswerHasCome)
{
    LoopbackServer::Reply mute;
    mute.timing = LoopbackServer::Timing::Held;
    m_server.setReply("/1/Packages.bz2", mute);
    m_server.setReply("/2/Packages.bz2", mute);
    start();
    ASSERT_TRUE(waitFor([this] { return m_server.requests().size() == 2; }));
    EXPECT_EQ(end().toStdString(), "");
}

TEST_F(CatalogProcess, endsCleanlyWhileBodiesPourIn)
{
    LoopbackServer::Reply endless;
    // Without a length, for one beyond the limit is refused before any of it has come.
    endless.declaredLength = -1;
    endless.fillerSize = qint64(1) << 40;
    endless.ending = LoopbackServer::Ending::Close;
    for (int round = 0; round < 10; ++round) {
        m_server.setReply("/1/Packages.bz2", endless);
        m_server.setReply("/2/Packages.bz2", endless);
        const qint64 before = m_server.bytesSent();
        start();
        ASSERT_TRUE(waitFor([&] { return m_server.bytesSent() - before > 1000 * 1000; }));
        // On a fast machine the bodies may have come to the limit by now, and every refresh to its end.
        const QString printed = end();
        EXPECT_TRUE(printed.isEmpty() || printed == QStringLiteral("finished\n")) << printed.toStdString();
    }
}

TEST_F(CatalogProcess, endsCleanlyWhileAnIndexIsRead)
{
    QByteArray text;
    for (int number = 0; number < 500000; ++number)
        text += "Package: p" + QByteArray::number(number) + "\nDescription: some text of a package\n\n";
    for (int round = 0; round < 5; ++round) {
        m_server.serve("/1/Packages.bz2", text);
        m_server.serve("/2/Packages.bz2", text);
        const qint64 before = m_server.bytesSent();
        start();
        ASSERT_TRUE(waitFor([&] { return m_server.bytesSent() - before >= 2 * text.size(); }));
        const QString printed = end();
        EXPECT_TRUE(printed.isEmpty() || printed == QStringLiteral("finished\n")) << printed.toStdString();
    }
}
