// The whole program, in a home of its own whose one source is switched off.
#include "ui/screens/shell/ApplicationMain.h"

#include "actions/process/ChildProcess.h"
#include "actions/process/SignalDispositions.h"

#include "tests/support/TestImage.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <functional>
#include <sys/resource.h>

namespace {

constexpr int chosenStatus = 7;

// What the program is run for.
std::function<bool()> s_hasSeenAll = [] { return true; };

// Again and again, for nothing ends before the main loop runs.
void endApplication()
{
    if (s_hasSeenAll())
        QCoreApplication::exit(chosenStatus);
    QMetaObject::invokeMethod(QCoreApplication::instance(), endApplication, Qt::QueuedConnection);
}

void enterHome(const QString& home)
{
    qputenv("HOME", home.toUtf8());
    qputenv("XDG_CONFIG_HOME", home.toUtf8());
    qputenv("XDG_CACHE_HOME", home.toUtf8());
    QDir().mkpath(home + QStringLiteral("/vesk"));
    QFile sources(home + QStringLiteral("/vesk/defaults.json"));
    sources.open(QIODevice::WriteOnly);
    sources.write("{\"VeskDefaultRepos_v1\":[{\"url\":\"http://127.0.0.1:9/\",\"name\":\"Off\",\"enabled\":false}]}");
}

// An icon theme with nothing but the program's icon.
void addIconTheme(const QString& directory)
{
    const QString theme = directory + QStringLiteral("/hicolor");
    QDir().mkpath(theme + QStringLiteral("/48x48/apps"));
    QFile index(theme + QStringLiteral("/index.theme"));
    index.open(QIODevice::WriteOnly);
    index.write("[Icon Theme]\nName=Hicolor\nDirectories=48x48/apps\n[48x48/apps]\nSize=48\n");
    QFile icon(theme + QStringLiteral("/48x48/apps/org.vesk.Vesk.png"));
    icon.open(QIODevice::WriteOnly);
    icon.write(pngOf(Qt::red, { 48, 48 }));
}

int run()
{
    std::array<char, 5> name{ "vesk" };
    std::array<char*, 2> arguments{ name.data(), nullptr };
    return applicationMain(1, arguments.data());
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(endApplication)

TEST(Application, mayHaveAsManyFilesOpenAsTheSystemAllowsAndItsChildrenAsManyAsItWasStartedWith)
{
    const QTemporaryDir home;
    enterHome(home.path());
    rlimit limit = {};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
    limit.rlim_cur = 200;
    ASSERT_LT(limit.rlim_cur, limit.rlim_max);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
    run();
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
    EXPECT_EQ(limit.rlim_cur, limit.rlim_max);
    EXPECT_TRUE(runChildProcess(
        { QStringLiteral("/bin/sh"), QStringLiteral("-c"), QStringLiteral("test $(ulimit -n) -eq 200") }));
}

TEST(Application, endsWithTheStatusOfItsMainLoopAndKnowsHowItsChildrenAreToStart)
{
    const QTemporaryDir home;
    enterHome(home.path());
    signal(SIGPIPE, SIG_DFL);
    EXPECT_EQ(run(), chosenStatus);
    signal(SIGPIPE, SIG_IGN);
    SignalDispositions::restoreForChildren();
    EXPECT_NE(signal(SIGPIPE, SIG_DFL), SIG_IGN);
}

TEST(Application, hasItsIconOnceItsWindowIsSeen)
{
    const QTemporaryDir home;
    enterHome(home.path());
    addIconTheme(home.path());
    bool hasIcon = false;
    const QDeadlineTimer patience(20000);
    s_hasSeenAll = [&] {
        // As a desktop would: offscreen there is none.
        QIcon::setThemeName(QStringLiteral("hicolor"));
        QIcon::setThemeSearchPaths({ home.path() });
        hasIcon = !QGuiApplication::windowIcon().isNull();
        return hasIcon || patience.hasExpired();
    };
    run();
    s_hasSeenAll = [] { return true; };
    EXPECT_TRUE(hasIcon);
}

TEST(Application, loadsNoTransportWhileItAsksForNothing)
{
    const QTemporaryDir home;
    enterHome(home.path());
    run();
    QFile loaded(QStringLiteral("/proc/self/maps"));
    ASSERT_TRUE(loaded.open(QIODevice::ReadOnly));
    const QByteArray libraries = loaded.readAll();
    EXPECT_TRUE(libraries.contains("libQt6Core.so"));
    EXPECT_FALSE(libraries.contains("libcurl.so"));
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
