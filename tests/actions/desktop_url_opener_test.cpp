// Each test has a desktop of its own: GIO reads it once in a process, so what opens URLs is a process of its own too.
#include "tests/actions/RecordingHandlers.h"

#include <QFile>
#include <QProcess>
#include <QSet>
#include <gtest/gtest.h>

namespace {

class DesktopURLOpener : public testing::Test
{
protected:
    QString probe(const QStringList& arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        m_handlers.enter(environment);
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(INSTALLER_PROBE), arguments);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }

    void handOverPackage(const QString& identifier)
    {
        probe({ QStringLiteral("package"), QStringLiteral("https://repo.example.org/deep/path"), identifier });
    }

    void handOverRepository() { probe({ QStringLiteral("repository"), m_source }); }

    const QString m_source = QStringLiteral("https://repo.example.org/deep/path/");
    QTemporaryDir m_directory;
    RecordingHandlers m_handlers{ m_directory.path() };
};

} // namespace

TEST_F(DesktopURLOpener, knowsOnlySchemesThatHaveAHandler)
{
    m_handlers.install({ QStringLiteral("zbra") });
    EXPECT_EQ(probe({ QStringLiteral("can"), QStringLiteral("zbra://package/one") }), QStringLiteral("yes"));
    EXPECT_EQ(probe({ QStringLiteral("can"), QStringLiteral("ZBRA://package/one") }), QStringLiteral("yes"));
    EXPECT_EQ(probe({ QStringLiteral("can"), QStringLiteral("sileo://package/one") }), QStringLiteral("no"));
    EXPECT_EQ(probe({ QStringLiteral("can"), QStringLiteral("zbra") }), QStringLiteral("no"));
    EXPECT_EQ(probe({ QStringLiteral("can"), QString() }), QStringLiteral("no"));
}

TEST_F(DesktopURLOpener, takesNoLetterOfATextWithoutASchemeForOne)
{
    m_handlers.install({ QStringLiteral("z") });
    EXPECT_EQ(probe({ QStringLiteral("can"), QStringLiteral("z:one") }), QStringLiteral("yes"));
    EXPECT_EQ(probe({ QStringLiteral("can"), QStringLiteral("zbra") }), QStringLiteral("no"));
}

TEST_F(DesktopURLOpener, opensAPackageInTheFirstPackageManagerOnly)
{
    m_handlers.install(
        { QStringLiteral("sileo"), QStringLiteral("zbra"), QStringLiteral("apt"), QStringLiteral("cydia") });
    handOverPackage(QStringLiteral("org.example.one"));
    handOverPackage(QStringLiteral("org.example.two"));
    const QStringList urls = m_handlers.urls(2);
    EXPECT_EQ(QSet<QString>(urls.begin(), urls.end()),
        (QSet<QString>{
            QStringLiteral("sileo://package/org.example.one"), QStringLiteral("sileo://package/org.example.two") }));
}

TEST_F(DesktopURLOpener, opensAPackageByItsSourcesHostWhenOnlyTheThirdHandlerIsThere)
{
    m_handlers.install({ QStringLiteral("apt") });
    handOverPackage(QStringLiteral("org.example.one"));
    EXPECT_EQ(m_handlers.urls(1), QStringList{ QStringLiteral("apt://repo.example.org/org.example.one") });
}

TEST_F(DesktopURLOpener, opensASourceInEachPackageManager)
{
    const QList<QStringList> expectations = {
        { QStringLiteral("sileo"), QStringLiteral("sileo://source/") + m_source },
        { QStringLiteral("zbra"), QStringLiteral("zbra://sources/add/") + m_source },
        { QStringLiteral("cydia"),
            QStringLiteral("cydia://url/https://cydia.saurik.com/api/share#?source=") + m_source },
        { QStringLiteral("apt"), QStringLiteral("apt://") + m_source },
    };
    QStringList expected;
    for (const QStringList& expectation : expectations) {
        m_handlers.install({ expectation[0] });
        handOverRepository();
        expected.append(expectation[1]);
        EXPECT_EQ(m_handlers.urls(static_cast<int>(expected.size())), expected);
    }
}

TEST_F(DesktopURLOpener, passesAURLOnVerbatim)
{
    m_handlers.install({ QStringLiteral("sileo") });
    const QString odd = QStringLiteral("Ünï+cödé~%41'$(id);*&x=1#?~");
    handOverPackage(odd);
    EXPECT_EQ(m_handlers.urls(1), QStringList{ QStringLiteral("sileo://package/") + odd });
}

TEST_F(DesktopURLOpener, doesNothingWithoutAHandlerAndForAnIdentifierWithABlank)
{
    handOverPackage(QStringLiteral("org.example.one"));
    handOverRepository();
    m_handlers.install(
        { QStringLiteral("sileo"), QStringLiteral("zbra"), QStringLiteral("apt"), QStringLiteral("cydia") });
    handOverPackage(QStringLiteral("two words"));
    // What comes first is the first that was opened at all.
    handOverPackage(QStringLiteral("last"));
    EXPECT_EQ(m_handlers.urls(1), QStringList{ QStringLiteral("sileo://package/last") });
}

TEST_F(DesktopURLOpener, startsTheHandlerWithTheLimitOfOpenFilesThatTheProgramWasStartedWith)
{
    m_handlers.install({ QStringLiteral("sileo") });
    QFile handler(m_directory.filePath(QStringLiteral("record")));
    ASSERT_TRUE(handler.open(QIODevice::WriteOnly));
    handler.write("#!/bin/sh\nulimit -n >> '" + m_directory.filePath(QStringLiteral("urls")).toUtf8() + "'\n");
    handler.close();
    QProcess shell;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    m_handlers.enter(environment);
    shell.setProcessEnvironment(environment);
    shell.start(QStringLiteral("/bin/sh"),
        { QStringLiteral("-c"), QStringLiteral("ulimit -Sn 200; exec \"$0\" package \"$1\" org.example.one"),
            QStringLiteral(INSTALLER_PROBE), m_source });
    ASSERT_TRUE(shell.waitForFinished());
    EXPECT_EQ(m_handlers.urls(1), QStringList{ QStringLiteral("200") });
}
