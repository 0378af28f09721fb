// The stored list of sources on real disks that fail: a small one that is full, and a file that may not be read.
#include "catalog/sources/JsonSourceStore.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

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
        environment.insert(QStringLiteral("W"), m_directory.path());
        environment.insert(QStringLiteral("PROBE"), QStringLiteral(SOURCE_SWITCH_PROBE));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        const QStringList sandbox{ QStringLiteral("--unshare-user"), QStringLiteral("--die-with-parent"),
            QStringLiteral("--ro-bind"), QStringLiteral("/"), QStringLiteral("/"), QStringLiteral("--dev"),
            QStringLiteral("/dev"), QStringLiteral("--bind"), m_directory.path(), m_directory.path() };
        process.start(QStringLiteral("bwrap"),
            sandbox + options
                + QStringList{ QStringLiteral("--"), QStringLiteral("/bin/sh"), QStringLiteral("-euc"),
                    QString::fromUtf8(script) });
        ASSERT_TRUE(process.waitForStarted()) << "bwrap is needed (Debian package bubblewrap)";
        ASSERT_TRUE(process.waitForFinished(longestWait));
        ASSERT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
    }

    std::optional<std::vector<StoredSource>> stored(const QString& name) const
    {
        return JsonSourceStore(path(name)).sources();
    }

    QTemporaryDir m_directory;
    const std::vector<StoredSource> m_user{ { QStringLiteral("https://a"), QStringLiteral("A"), true },
        { QStringLiteral("https://b"), QStringLiteral("B"), true } };
};

TEST_F(StoreOnARealDisk, isNotEmptiedWhenASwitchIsTouchedWhileTheDiskIsFull)
{
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("disk"))));
    ASSERT_TRUE(JsonSourceStore(path(QStringLiteral("before.json"))).setSources(m_user));
    run({ QStringLiteral("--size"), QStringLiteral("131072"), QStringLiteral("--tmpfs"), path(QStringLiteral("disk")) },
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
    EXPECT_TRUE(contents(QStringLiteral("filled")).contains("No space left"));
    EXPECT_EQ(contents(QStringLiteral("out")), "2 off\n2 on\n2 off\n");
    EXPECT_EQ(contents(QStringLiteral("during.json")), contents(QStringLiteral("before.json")));
    EXPECT_EQ(contents(QStringLiteral("files")), "defaults.json\n");
    EXPECT_EQ(stored(QStringLiteral("after.json")),
        std::vector<StoredSource>({ { QStringLiteral("https://a"), QStringLiteral("A"), false },
            { QStringLiteral("https://b"), QStringLiteral("B"), true } }));
}

TEST_F(StoreOnARealDisk, isNotEmptiedWhenAFileMayNotGrow)
{
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("vesk"))));
    ASSERT_TRUE(JsonSourceStore(path(QStringLiteral("vesk/defaults.json"))).setSources(m_user));
    const QByteArray before = contents(QStringLiteral("vesk/defaults.json"));
    run({}, R"(
        trap '' XFSZ
        mkfifo "$W/out"
        cat "$W/out" >"$W/printed" &
        (ulimit -f 0; echo | XDG_CONFIG_HOME="$W" "$PROBE" >"$W/out")
        wait
        )");
    EXPECT_EQ(contents(QStringLiteral("printed")), "2 off\n");
    EXPECT_EQ(contents(QStringLiteral("vesk/defaults.json")), before);
    EXPECT_EQ(QDir(path(QStringLiteral("vesk"))).entryList(QDir::Files | QDir::Hidden),
        QStringList(QStringLiteral("defaults.json")));
}

TEST_F(StoreOnARealDisk, isLeftAloneWhenItMayNotBeRead)
{
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("vesk"))));
    const QString file = path(QStringLiteral("vesk/defaults.json"));
    ASSERT_TRUE(JsonSourceStore(file).setSources(m_user));
    const QByteArray before = contents(QStringLiteral("vesk/defaults.json"));
    ASSERT_EQ(::chmod(QFile::encodeName(file).constData(), 0), 0);
    // An ordinary user, whoever runs this.
    run({ QStringLiteral("--uid"), QStringLiteral("1000"), QStringLiteral("--gid"), QStringLiteral("1000"),
            QStringLiteral("--cap-drop"), QStringLiteral("ALL") },
        R"(printf '\n\n' | XDG_CONFIG_HOME="$W" "$PROBE" >"$W/out")");
    ASSERT_EQ(::chmod(QFile::encodeName(file).constData(), 0600), 0);
    EXPECT_EQ(contents(QStringLiteral("out")), "4 off\n4 on\n");
    EXPECT_EQ(contents(QStringLiteral("vesk/defaults.json")), before);
    EXPECT_EQ(QDir(path(QStringLiteral("vesk"))).entryList(QDir::Files | QDir::Hidden),
        QStringList(QStringLiteral("defaults.json")));
}

TEST_F(StoreOnARealDisk, isLeftAsItIsWhereTheDirectoryMayOnlyBeRead)
{
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("vesk"))));
    const QString file = path(QStringLiteral("vesk/defaults.json"));
    ASSERT_TRUE(JsonSourceStore(file).setSources(m_user));
    const QByteArray before = contents(QStringLiteral("vesk/defaults.json"));
    run({ QStringLiteral("--ro-bind"), path(QStringLiteral("vesk")), path(QStringLiteral("vesk")) },
        R"(printf '\n\n' | XDG_CONFIG_HOME="$W" "$PROBE" >"$W/out")");
    EXPECT_EQ(contents(QStringLiteral("out")), "2 off\n2 on\n");
    EXPECT_EQ(contents(QStringLiteral("vesk/defaults.json")), before);
}
