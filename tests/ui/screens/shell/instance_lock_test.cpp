#include "ui/screens/shell/InstanceLock.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using State = InstanceLock::State;

namespace {

class InstanceLockTest : public testing::Test
{
protected:
    QString path(const QString& name) const { return m_directory.filePath(name); }
    QString settings() const { return path(QStringLiteral("defaults.json")); }

    QTemporaryDir m_directory;
};

} // namespace

TEST_F(InstanceLockTest, isHeldByOneAtATime)
{
    InstanceLock second(settings());
    {
        InstanceLock first(settings());
        EXPECT_EQ(first.acquire(), State::Held);
        EXPECT_EQ(first.acquire(), State::Held) << "what is held already";
        EXPECT_EQ(second.acquire(), State::HeldByAnother);
    }
    EXPECT_EQ(second.acquire(), State::Held);
}

TEST_F(InstanceLockTest, makesTheDirectoryOfAFileThatWasNeverWritten)
{
    EXPECT_EQ(InstanceLock(path(QStringLiteral("new/below/defaults.json"))).acquire(), State::Held);
}

TEST_F(InstanceLockTest, isOneForAllNamesOfAFile)
{
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("elsewhere"))));
    ASSERT_TRUE(QFile(settings()).open(QIODevice::WriteOnly));
    const QString other = path(QStringLiteral("elsewhere/linked.json"));
    ASSERT_TRUE(QFile::link(settings(), other));
    InstanceLock first(settings());
    EXPECT_EQ(first.acquire(), State::Held);
    EXPECT_EQ(InstanceLock(other).acquire(), State::HeldByAnother);
}

TEST_F(InstanceLockTest, isOneForAllNamesOfADirectoryInWhichThereIsNoFileYet)
{
    const QString other = path(QStringLiteral("linked"));
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("real"))));
    ASSERT_TRUE(QFile::link(path(QStringLiteral("real")), other));
    const InstanceLock first(path(QStringLiteral("real/defaults.json")));
    const InstanceLock second(other + QStringLiteral("/defaults.json"));
    EXPECT_EQ(second.settingsFile(), first.settingsFile());
}

TEST_F(InstanceLockTest, makesNothingBehindALinkInItsPlace)
{
    const QString victim = path(QStringLiteral("victim"));
    ASSERT_TRUE(QFile::link(victim, settings() + QStringLiteral(".lock")));
    EXPECT_EQ(InstanceLock(settings()).acquire(), State::Impossible);
    EXPECT_FALSE(QFile::exists(victim));
}
