// The end of a process while an icon is on its way.
#include "tests/support/LoopbackServer.h"
#include "tests/support/TestImage.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr int longestWait = 60000;

class IconProcess : public testing::Test
{
protected:
    // What the process prints when it ends as soon as the server has been asked for the icon.
    QString printedAtItsEnd()
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeDirectory.path());
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral(ICON_PROBE), { server.url(QStringLiteral("/icon.png")) });
        const std::size_t before = server.requests().size();
        EXPECT_TRUE(QTest::qWaitFor([&] { return server.requests().size() > before; }, longestWait));
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(longestWait));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
        return QString::fromUtf8(process.readAll());
    }

    QTemporaryDir runtimeDirectory;
    LoopbackServer server;
};

} // namespace

TEST_F(IconProcess, endsItsNetworkWithTheApplicationBeforeAnAnswerHasCome)
{
    server.setReply("/icon.png", { .timing = LoopbackServer::Timing::Held });
    EXPECT_EQ(printedAtItsEnd().toStdString(), "");
}

TEST_F(IconProcess, endsItsNetworkWithTheApplicationWhileTheIconPoursIn)
{
    server.setReply("/icon.png", { .fillerSize = qint64(1) << 40 });
    EXPECT_EQ(printedAtItsEnd().toStdString(), "");
}

TEST_F(IconProcess, endsItsNetworkWithTheApplicationWhileTheIconIsDecoded)
{
    server.serve("/icon.png", pngOf(Qt::red, { 1000, 1000 }));
    for (int round = 0; round < 5; ++round)
        EXPECT_EQ(printedAtItsEnd().toStdString(), "") << round;
}
