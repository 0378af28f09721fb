// The stored list of sources on real disks that fail: a small one that is full, and a file that may not be read.
#include "catalog/sources/JsonSourceStore.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestWait = 60000;

} // namespace

// Everything happens in a sandbox that sees the machine and can write below one directory alone.
class StoreOnARealDisk : public testing::Test
{
protected:
    QString path(const QString& name) const { return m_directory.filePath(name); }

    QByteArray contents(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
    }

    // Runs the script, which finds the directory and the probe in its environment.
    void run(const QStringList& options, const QByteArray& script)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"W"_s, m_directory.path());
        environment.insert(u"PROBE"_s, QStringLiteral(SOURCE_SWITCH_PROBE));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        const QStringList sandbox{ u"--unshare-user"_s, u"--die-with-parent"_s, u"--ro-bind"_s, u"/"_s, u"/"_s,
            u"--dev"_s, u"/dev"_s, u"--bind"_s, m_directory.path(), m_directory.path() };
        process.start(
            u"bwrap"_s, sandbox + options + QStringList{ u"--"_s, u"/bin/sh"_s, u"-euc"_s, QString::fromUtf8(script) });
        ASSERT_TRUE(process.waitForStarted()) << "bwrap is needed (Debian package bubblewrap)";
        ASSERT_TRUE(process.waitForFinished(longestWait));
        ASSERT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
    }

    std::optional<std::vector<StoredSource>> stored(const QString& name) const
    {
        return JsonSourceStore(path(name)).sources();
    }

    QTemporaryDir m_directory;
    const std::vector<StoredSource> m_user{ { u"https://a"_s, u"A"_s, true }, { u"https://b"_s, u"B"_s, true } };
};

TEST_F(StoreOnARealDisk, isNotEmptiedWhenASwitchIsTouchedWhileTheDiskIsFull)
{
    ASSERT_TRUE(QDir().mkpath(path(u"disk"_s)));
    ASSERT_TRUE(JsonSourceStore(path(u"before.json"_s)).setSources(m_user));
    run({ u"--size"_s, u"131072"_s, u"--tmpfs"_s, path(u"disk"_s) },
        R"(
        mkdir "$W/disk/vesk"
        cp "$W/before.json" "$W/disk/vesk/defaults.json"
        mkfifo "$W/in"
        XDG_CONFIG_HOME="$W/disk" "$PROBE" <"$W/in" >"$W/out" &
        exec 3>"$W/in"
        cat /dev/zero >"$W/disk/filler" 2>"$W/filled" || true
        echo >&3
        until [ -s "$W/out" ]; do sleep 0.02; done
        cp "$W/disk/vesk/defaults.json" "$W/during.json"
        ls "$W/disk/vesk" >"$W/files"
        rm "$W/disk/filler"
        printf '\n\n' >&3
        exec 3>&-
        wait
        cp "$W/disk/vesk/defaults.json" "$W/after.json"
        )");
    EXPECT_TRUE(contents(u"filled"_s).contains("No space left"));
    EXPECT_EQ(contents(u"out"_s), "2 off\n2 on\n2 off\n");
    EXPECT_EQ(contents(u"during.json"_s), contents(u"before.json"_s));
    EXPECT_EQ(contents(u"files"_s), "defaults.json\n");
    EXPECT_EQ(stored(u"after.json"_s),
        std::vector<StoredSource>({ { u"https://a"_s, u"A"_s, false }, { u"https://b"_s, u"B"_s, true } }));
}

TEST_F(StoreOnARealDisk, isNotEmptiedWhenAFileMayNotGrow)
{
    ASSERT_TRUE(QDir().mkpath(path(u"vesk"_s)));
    ASSERT_TRUE(JsonSourceStore(path(u"vesk/defaults.json"_s)).setSources(m_user));
    const QByteArray before = contents(u"vesk/defaults.json"_s);
    run({}, R"(
        trap '' XFSZ
        mkfifo "$W/out"
        cat "$W/out" >"$W/printed" &
        (ulimit -f 0; echo | XDG_CONFIG_HOME="$W" "$PROBE" >"$W/out")
        wait
        )");
    EXPECT_EQ(contents(u"printed"_s), "2 off\n");
    EXPECT_EQ(contents(u"vesk/defaults.json"_s), before);
    EXPECT_EQ(QDir(path(u"vesk"_s)).entryList(QDir::Files | QDir::Hidden), QStringList(u"defaults.json"_s));
}

TEST_F(StoreOnARealDisk, isLeftAloneWhenItMayNotBeRead)
{
    ASSERT_TRUE(QDir().mkpath(path(u"vesk"_s)));
    const QString file = path(u"vesk/defaults.json"_s);
    ASSERT_TRUE(JsonSourceStore(file).setSources(m_user));
    const QByteArray before = contents(u"vesk/defaults.json"_s);
    ASSERT_EQ(::chmod(QFile::encodeName(file).constData(), 0), 0);
    // An ordinary user, whoever runs this.
    run({ u"--uid"_s, u"1000"_s, u"--gid"_s, u"1000"_s, u"--cap-drop"_s, u"ALL"_s },
        R"(printf '\n\n' | XDG_CONFIG_HOME="$W" "$PROBE" >"$W/out")");
    ASSERT_EQ(::chmod(QFile::encodeName(file).constData(), 0600), 0);
    EXPECT_EQ(contents(u"out"_s), "4 off\n4 on\n");
    EXPECT_EQ(contents(u"vesk/defaults.json"_s), before);
    EXPECT_EQ(QDir(path(u"vesk"_s)).entryList(QDir::Files | QDir::Hidden), QStringList(u"defaults.json"_s));
}

TEST_F(StoreOnARealDisk, isLeftAsItIsWhereTheDirectoryMayOnlyBeRead)
{
    ASSERT_TRUE(QDir().mkpath(path(u"vesk"_s)));
    const QString file = path(u"vesk/defaults.json"_s);
    ASSERT_TRUE(JsonSourceStore(file).setSources(m_user));
    const QByteArray before = contents(u"vesk/defaults.json"_s);
    run({ u"--ro-bind"_s, path(u"vesk"_s), path(u"vesk"_s) },
        R"(printf '\n\n' | XDG_CONFIG_HOME="$W" "$PROBE" >"$W/out")");
    EXPECT_EQ(contents(u"out"_s), "2 off\n2 on\n");
    EXPECT_EQ(contents(u"vesk/defaults.json"_s), before);
}
