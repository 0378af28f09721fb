#include "catalog/index/DpkgStatus.h"
#include "tests/catalog/CatalogFixture.h"

#include <QDir>
#include <QFile>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// "(none)" when nothing is told of the package.
std::string versionIn(const QByteArray& status, std::string_view packageID)
{
    const DpkgStatus snapshot = DpkgStatus::fromBytes(status);
    const auto version = snapshot.versionOf(packageID);
    return version ? std::string(*version) : "(none)";
}

// While it lives, the process may ask for so many more bytes of memory and no more.
class LittleMemory
{
public:
    explicit LittleMemory(std::size_t bytes)
    {
        EXPECT_EQ(::getrlimit(RLIMIT_AS, &m_before), 0);
        rlimit limit = m_before;
        limit.rlim_cur = addressSpace() + bytes;
        EXPECT_EQ(::setrlimit(RLIMIT_AS, &limit), 0);
    }
    ~LittleMemory() { ::setrlimit(RLIMIT_AS, &m_before); }
    LittleMemory(const LittleMemory&) = delete;
    LittleMemory& operator=(const LittleMemory&) = delete;

private:
    static std::size_t addressSpace()
    {
        QFile file(QStringLiteral("/proc/self/statm"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().split(' ').first().toULongLong() * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    }

    rlimit m_before{};
};

} // namespace

class DpkgStatusFiles : public CatalogFixture
{
protected:
    QString write(const QString& name, const QByteArray& contents) const
    {
        QFile file(m_directory.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
        return file.fileName();
    }

    static std::string versionIn(const QStringList& paths, std::string_view packageID)
    {
        const DpkgStatus snapshot = DpkgStatus::read(paths);
        const auto version = snapshot.versionOf(packageID);
        return version ? std::string(*version) : "(none)";
    }
};

TEST(DpkgStatus, looksAtTheThreePlacesInTheirOrder)
{
    EXPECT_EQ(DpkgStatus::standardPaths(),
        QStringList({ QStringLiteral("/var/lib/dpkg/status"), QStringLiteral("/var/lib/apt/dpkg/status"),
            QStringLiteral("/Library/dpkg/status") }));
}

TEST(DpkgStatus, findsTheVersionOfEachStanza)
{
    const QByteArray status = "Package: a\nVersion: 1\n\nPackage: b\nStatus: install ok installed\nVersion: 2:3-4\n";
    EXPECT_EQ(versionIn(status, "a"), "1");
    EXPECT_EQ(versionIn(status, "b"), "2:3-4");
    EXPECT_EQ(versionIn(status, "c"), "(none)");
    EXPECT_EQ(versionIn(status, "A"), "(none)");
}

TEST(DpkgStatus, countsAPackageOfWhichOnlyTheConfigurationIsLeft)
{
    EXPECT_EQ(versionIn("Package: a\nStatus: deinstall ok config-files\nVersion: 1\n", "a"), "1");
}

TEST(DpkgStatus, tellsNothingOfAStanzaWithoutVersionEvenWhenALaterOneHasOne)
{
    EXPECT_EQ(versionIn("Package: a\n\nPackage: a\nVersion: 2\n", "a"), "(none)");
}

TEST(DpkgStatus, takesTheFirstStanzaOfAPackage)
{
    EXPECT_EQ(versionIn("Package: a\nVersion: 1\n\nPackage: a\nVersion: 2\n", "a"), "1");
}

TEST(DpkgStatus, takesTheFirstStanzaOfEachOfManyPackagesThatComeAgain)
{
    constexpr int packageCount = 3000;
    QByteArray status;
    for (int number = 0; number < packageCount; ++number)
        for (const char* version : { "1", "2", "3" })
            status += "Package: p" + QByteArray::number(number) + "\nVersion: " + version + "\n\n";
    const DpkgStatus snapshot = DpkgStatus::fromBytes(status);
    for (int number = 0; number < packageCount; ++number)
        EXPECT_EQ(snapshot.versionOf(("p" + QByteArray::number(number)).toStdString()), "1") << number;
}

TEST(DpkgStatus, takesAFieldOfNothingButBlanksForAnEmptyOne)
{
    EXPECT_EQ(versionIn("Package: a\nVersion: \t \n", "a"), "");
    EXPECT_EQ(versionIn("Package: \t \nVersion: 1\n", ""), "1");
}

TEST(DpkgStatus, takesTheLastOfSeveralFieldsInAStanza)
{
    const QByteArray status = "Package: a\nVersion: 1\nPackage: b\nVersion: 2\n";
    EXPECT_EQ(versionIn(status, "a"), "(none)");
    EXPECT_EQ(versionIn(status, "b"), "2");
}

TEST(DpkgStatus, trimsSpacesAndTabsAndNothingElse)
{
    EXPECT_EQ(versionIn("Package:a\nVersion: \t1 2\t \n", "a"), "1 2");
    EXPECT_EQ(versionIn("Package: \ta \t\nVersion:1\n", "a"), "1");
    EXPECT_EQ(versionIn("Package: a\nVersion: 1\r\n", "a"), "1\r");
    EXPECT_EQ(versionIn("Package: a\nVersion:\r1\n", "a"), "\r1");
    EXPECT_EQ(versionIn("Package: \ra\nVersion: \v1\f\n", "\ra"), "\v1\f");
}

TEST(DpkgStatus, doesNotKnowFieldsInOtherLettersOrBehindABlank)
{
    EXPECT_EQ(versionIn("package: a\nVersion: 1\n", "a"), "(none)");
    EXPECT_EQ(versionIn("Package: a\nversion: 1\n", "a"), "(none)");
    EXPECT_EQ(versionIn(" Package: a\nVersion: 1\n", "a"), "(none)");
    EXPECT_EQ(versionIn("Package : a\nVersion: 1\n", "a"), "(none)");
}

TEST(DpkgStatus, readsAFileWithCarriageReturnsAsOneStanza)
{
    const QByteArray status = "Package: a\r\nVersion: 1\r\n\r\nPackage: b\r\nVersion: 2\r\n";
    EXPECT_EQ(versionIn(status, "a"), "(none)");
    EXPECT_EQ(versionIn(status, "b"), "(none)");
    EXPECT_EQ(versionIn(status, "b\r"), "2\r");
}

TEST(DpkgStatus, separatesStanzasByAnyNumberOfEmptyLines)
{
    const QByteArray status = "\nPackage: a\nVersion: 1\n\n\n\n\nPackage: b\nVersion: 2\n\n\n";
    EXPECT_EQ(versionIn(status, "a"), "1");
    EXPECT_EQ(versionIn(status, "b"), "2");
}

TEST(DpkgStatus, givesAnEmptyVersionWhenTheFieldIsEmpty)
{
    EXPECT_EQ(versionIn("Package: a\nVersion:\n", "a"), "");
}

TEST(DpkgStatus, readsBytesThatAreNotUtf8AsLatin1)
{
    EXPECT_EQ(versionIn("Package: a\nVersion: 1\xe9\n", "a"), "1\xc3\xa9");
    EXPECT_EQ(versionIn("Package: a\nVersion: 1\xc3\xa9\n", "a"), "1\xc3\xa9");
}

TEST(DpkgStatus, readsPastAByteOrderMark)
{
    EXPECT_EQ(versionIn("\xef\xbb\xbfPackage: a\nVersion: 1\n", "a"), "1");
}

TEST_F(DpkgStatusFiles, areReadFromTheSecondPlaceWhenTheFirstIsMissing)
{
    const QString second = write(QStringLiteral("second"), "Package: a\nVersion: 1\n");
    EXPECT_EQ(versionIn({ m_directory.filePath(QStringLiteral("missing")), second }, "a"), "1");
}

TEST_F(DpkgStatusFiles, endTheSearchWithTheFirstThatCanBeReadEvenWhenItIsEmpty)
{
    const QString first = write(QStringLiteral("first"), "");
    const QString second = write(QStringLiteral("second"), "Package: a\nVersion: 1\n");
    EXPECT_EQ(versionIn({ first, second }, "a"), "(none)");
    EXPECT_EQ(versionIn({ write(QStringLiteral("other"), "Package: b\nVersion: 2\n"), second }, "a"), "(none)");
}

TEST_F(DpkgStatusFiles, tellNothingWhenNoneCanBeRead)
{
    EXPECT_EQ(versionIn({ m_directory.filePath(QStringLiteral("missing")), m_directory.path() }, "a"), "(none)");
}

TEST_F(DpkgStatusFiles, doNotBlockOnAPipeInTheirPlace)
{
    const QString pipe = m_directory.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(versionIn({ pipe, write(QStringLiteral("second"), "Package: a\nVersion: 1\n") }, "a"), "1");
}

TEST_F(DpkgStatusFiles, arePassedOverWhenTheyAreLargerThanAnyStatusFile)
{
    constexpr qint64 largest = qint64(256) * 1024 * 1024;
    QFile first(write(QStringLiteral("first"), "Package: a\nVersion: 1\n\n"));
    const QString second = write(QStringLiteral("second"), "Package: a\nVersion: 2\n");
    ASSERT_TRUE(first.resize(largest));
    EXPECT_EQ(versionIn({ first.fileName(), second }, "a"), "1");
    ASSERT_TRUE(first.resize(largest + 1));
    EXPECT_EQ(versionIn({ first.fileName(), second }, "a"), "2");
}

TEST_F(DpkgStatusFiles, doNotTakeTheMemoryOfTheLargestForASmallOne)
{
    const QString path = write(QStringLiteral("small"), "Package: a\nVersion: 1\n");
    std::string version;
    {
        const LittleMemory little(std::size_t(64) << 20);
        version = versionIn({ path }, "a");
    }
    EXPECT_EQ(version, "1");
}

TEST_F(DpkgStatusFiles, tellTheManagerNothingForNoIdentifierEvenWhenAStanzaHasAnEmptyOne)
{
    writeStatus("Package:\nVersion: 1\n");
    EXPECT_TRUE(manager().installedVersionForPackage(QString()).isNull());
    EXPECT_EQ(manager().installedVersionForPackage(QStringLiteral("")), QStringLiteral("1"));
}

TEST_F(DpkgStatusFiles, areReadAnewByEveryQuestionToTheManager)
{
    EXPECT_TRUE(manager().installedVersionForPackage(QStringLiteral("a")).isNull());
    writeStatus("Package: a\nVersion: 1\n");
    EXPECT_EQ(manager().installedVersionForPackage(QStringLiteral("a")), QStringLiteral("1"));
    writeStatus("Package: a\nVersion: 2\n");
    EXPECT_EQ(manager().installedVersionForPackage(QStringLiteral("a")), QStringLiteral("2"));
}

TEST_F(DpkgStatusFiles, giveTheManagerNullForAbsentAndEmptyForAnEmptyVersion)
{
    writeStatus("Package: a\nVersion:\n\nPackage: b\n");
    EXPECT_FALSE(manager().installedVersionForPackage(QStringLiteral("a")).isNull());
    EXPECT_TRUE(manager().installedVersionForPackage(QStringLiteral("a")).isEmpty());
    EXPECT_TRUE(manager().installedVersionForPackage(QStringLiteral("b")).isNull());
    EXPECT_TRUE(manager().installedVersionForPackage(QStringLiteral("c")).isNull());
    EXPECT_TRUE(manager().installedVersionForPackage(QString()).isNull());
}

TEST_F(DpkgStatusFiles, areThoseOfThisMachineForTheUsersOwnCatalog)
{
    EXPECT_EQ(CatalogWorld::real().statusPaths, DpkgStatus::standardPaths());
}
