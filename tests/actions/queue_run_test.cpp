#include "actions/QueueRun.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <chrono>
#include <thread>

namespace {

using std::chrono::steady_clock;

VeskPackagePtr packageNamed(const QString& identifier)
{
    auto package = std::make_shared<VeskPackage>();
    package->setPackageID(identifier);
    return package;
}

// A run whose steps are recorded and answer as they are told.
class QueueRunTest : public testing::Test
{
protected:
    QueueEntryPtr add(const QString& identifier, qint64 status = QueueStatusQueued, qint64 action = QueueActionInstall)
    {
        run.entries.push_back(QueueEntry::entryWithPackage(packageNamed(identifier), action));
        run.entries.back()->setStatus(status);
        return run.entries.back();
    }

    void note(const QString& what, const QString& identifier) { steps.append(what + u' ' + identifier); }

    QString statusesNow() const
    {
        QString text;
        for (const QueueEntryPtr& entry : run.entries)
            text += QString::number(entry->status());
        return text;
    }

    QStringList steps;
    QStringList missing;
    QStringList broken;
    std::stop_source stop;
    QueueRun run{
        .entries = {},
        .download =
            [this](const VeskPackagePtr& package, const std::stop_token&) {
                note(QStringLiteral("download"), package->packageID() + u' ' + statusesNow());
                return missing.contains(package->packageID()) ? QString() : u'/' + package->packageID();
            },
        .install =
            [this](const QString& path, const VeskPackagePtr& package) {
                note(QStringLiteral("install"), path + u' ' + statusesNow());
                return !broken.contains(package->packageID());
            },
        .handOver =
            [this](const VeskPackagePtr& package) {
                note(QStringLiteral("hand over"), package->packageID() + u' ' + statusesNow());
            },
        .finish = [this] { note(QStringLiteral("finish"), statusesNow()); },
        .handOffDelay = std::chrono::milliseconds(0),
    };
};

} // namespace

TEST_F(QueueRunTest, takesAnEntryThroughDownloadingAndInstallingToComplete)
{
    add(QStringLiteral("a"));
    run.execute(stop.get_token());
    EXPECT_EQ(steps,
        (QStringList{ QStringLiteral("download a 1"), QStringLiteral("install /a 2"), QStringLiteral("finish 4") }));
}

TEST_F(QueueRunTest, leavesAFailedDownloadReadyAndHandsItOver)
{
    add(QStringLiteral("a"));
    missing = { QStringLiteral("a") };
    run.execute(stop.get_token());
    EXPECT_EQ(steps,
        (QStringList{ QStringLiteral("download a 1"), QStringLiteral("hand over a 3"), QStringLiteral("finish 3") }));
}

TEST_F(QueueRunTest, leavesAFailedInstallationReadyAndHandsItOver)
{
    add(QStringLiteral("a"));
    broken = { QStringLiteral("a") };
    run.execute(stop.get_token());
    EXPECT_EQ(steps,
        (QStringList{ QStringLiteral("download a 1"), QStringLiteral("install /a 2"), QStringLiteral("hand over a 3"),
            QStringLiteral("finish 3") }));
}

TEST_F(QueueRunTest, processesEntriesStrictlyInTheirOrderAndGoesOnAfterAFailure)
{
    add(QStringLiteral("c"));
    add(QStringLiteral("a"));
    add(QStringLiteral("b"));
    missing = { QStringLiteral("c") };
    broken = { QStringLiteral("a") };
    run.execute(stop.get_token());
    EXPECT_EQ(steps,
        (QStringList{ QStringLiteral("download c 100"), QStringLiteral("hand over c 300"),
            QStringLiteral("download a 310"), QStringLiteral("install /a 320"), QStringLiteral("hand over a 330"),
            QStringLiteral("download b 331"), QStringLiteral("install /b 332"), QStringLiteral("finish 334") }));
}

TEST_F(QueueRunTest, skipsWhatIsCompleteOrFailedAndRunsEveryOtherStatusAgain)
{
    for (qint64 status = -1; status <= 6; ++status)
        add(QString::number(status), status);
    run.execute(stop.get_token());
    EXPECT_EQ(statusesNow(), QStringLiteral("44444454"));
    QStringList downloads;
    for (const QString& step : steps.filter(QStringLiteral("download")))
        downloads.append(step.section(u' ', 1, 1));
    EXPECT_EQ(downloads.join(u' '), QStringLiteral("-1 0 1 2 3 6"));
}

TEST_F(QueueRunTest, doesNotConsultTheAction)
{
    for (const qint64 action : { qint64(QueueActionUninstall), qint64(QueueActionUpgrade), qint64(77) }) {
        run.entries.clear();
        steps.clear();
        add(QStringLiteral("a"), QueueStatusQueued, action);
        run.execute(stop.get_token());
        EXPECT_EQ(steps,
            (QStringList{
                QStringLiteral("download a 1"), QStringLiteral("install /a 2"), QStringLiteral("finish 4") }));
    }
}

TEST_F(QueueRunTest, finishesWithNothingToDo)
{
    run.execute(stop.get_token());
    add(QStringLiteral("a"), QueueStatusComplete);
    run.execute(stop.get_token());
    EXPECT_EQ(steps, (QStringList{ QStringLiteral("finish "), QStringLiteral("finish 4") }));
}

TEST_F(QueueRunTest, neverSetsAnEntryFailed)
{
    for (const QString& name : { QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") })
        add(name);
    missing = { QStringLiteral("a") };
    broken = { QStringLiteral("b") };
    run.execute(stop.get_token());
    EXPECT_EQ(statusesNow(), QStringLiteral("334"));
    for (const QString& step : steps)
        EXPECT_FALSE(step.contains(u'5')) << step.toStdString();
}

TEST_F(QueueRunTest, restsBeforeItHandsOverAfterAFailedInstallationOnly)
{
    run.handOffDelay = std::chrono::milliseconds(60);
    steady_clock::time_point asked;
    std::vector<steady_clock::duration> delays;
    const auto record = [&](const VeskPackagePtr&) { delays.push_back(steady_clock::now() - asked); };
    run.download = [&](const VeskPackagePtr& package, const std::stop_token&) {
        asked = steady_clock::now();
        return missing.contains(package->packageID()) ? QString() : QStringLiteral("/a");
    };
    run.install = [&](const QString&, const VeskPackagePtr&) {
        asked = steady_clock::now();
        return false;
    };
    run.handOver = record;
    add(QStringLiteral("a"));
    add(QStringLiteral("b"));
    missing = { QStringLiteral("b") };
    run.execute(stop.get_token());
    ASSERT_EQ(delays.size(), 2U);
    EXPECT_GE(delays[0], run.handOffDelay);
    EXPECT_LT(delays[1], run.handOffDelay);
}

TEST_F(QueueRunTest, beginsNothingOnceToldToStop)
{
    add(QStringLiteral("a"));
    stop.request_stop();
    run.execute(stop.get_token());
    EXPECT_TRUE(steps.isEmpty());
    EXPECT_EQ(statusesNow(), QStringLiteral("0"));
}

TEST_F(QueueRunTest, neitherInstallsNorHandsOverAfterBeingStoppedInADownload)
{
    add(QStringLiteral("a"));
    add(QStringLiteral("b"));
    run.download = [this](const VeskPackagePtr&, const std::stop_token&) {
        stop.request_stop();
        return QStringLiteral("/a");
    };
    run.execute(stop.get_token());
    EXPECT_TRUE(steps.isEmpty());
}

TEST_F(QueueRunTest, wakesFromItsRestWhenToldToStop)
{
    run.handOffDelay = std::chrono::hours(1);
    add(QStringLiteral("a"));
    broken = { QStringLiteral("a") };
    std::jthread worker([this] { run.execute(stop.get_token()); });
    while (run.entries[0]->status() != QueueStatusReady)
        std::this_thread::yield();
    stop.request_stop();
    worker.join();
    EXPECT_EQ(steps, (QStringList{ QStringLiteral("download a 1"), QStringLiteral("install /a 2") }));
}

TEST_F(QueueRunTest, letsTheMainThreadReadStatusesWhileItRuns)
{
    for (int index = 0; index < 2000; ++index)
        add(QString::number(index));
    run.download = [](const VeskPackagePtr&, const std::stop_token&) { return QStringLiteral("/a"); };
    run.install = [](const QString&, const VeskPackagePtr&) { return true; };
    std::jthread worker([this] { run.execute(stop.get_token()); });
    qint64 last = 0;
    while (run.entries.back()->status() != QueueStatusComplete) {
        const qint64 status = run.entries.front()->status();
        EXPECT_GE(status, last);
        last = status;
    }
    worker.join();
    EXPECT_EQ(steps, QStringList{ QStringLiteral("finish ") + QString(2000, u'4') });
}
