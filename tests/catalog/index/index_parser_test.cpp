#include "catalog/index/IndexParser.h"
#include "tests/catalog/CatalogFixture.h"

class IndexParsing : public CatalogFixture
{
protected:
    PackageVector parse(const QString& text) { return manager().parsePackages(text, m_source); }

    VeskPackagePtr parseOne(const QString& text)
    {
        const PackageVector packages = parse(text);
        EXPECT_EQ(packages.size(), 1U);
        return packages.empty() ? std::make_shared<VeskPackage>() : packages.front();
    }

    VeskRepositoryPtr m_source
        = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
};

namespace {

bool isEmptyText(const QString& text)
{
    return text.isEmpty() && !text.isNull();
}

} // namespace

TEST_F(IndexParsing, fillsEveryFieldFromItsLine)
{
    const auto package
        = parseOne(QStringLiteral("Package: org.a\nName: Alpha\nVersion: 1.2\nDescription: It is\nAuthor: Ann <a@b>\n"
                                  "Maintainer: Max\nSection: Tools/Net\nIcon: file:///i.png\nDepiction: https://d/\n"
                                  "Homepage: https://h/\nArchitecture: all\n"));
    EXPECT_EQ(package->packageID(), QStringLiteral("org.a"));
    EXPECT_EQ(package->name(), QStringLiteral("Alpha"));
    EXPECT_EQ(package->version(), QStringLiteral("1.2"));
    EXPECT_EQ(package->desc(), QStringLiteral("It is"));
    EXPECT_EQ(package->author(), QStringLiteral("Ann <a@b>"));
    EXPECT_EQ(package->maintainer(), QStringLiteral("Max"));
    EXPECT_EQ(package->section(), QStringLiteral("Tools/Net"));
    EXPECT_EQ(package->iconURLString(), QStringLiteral("file:///i.png"));
    EXPECT_EQ(package->depictionURLString(), QStringLiteral("https://d/"));
    EXPECT_EQ(package->homepageURLString(), QStringLiteral("https://h/"));
    EXPECT_EQ(package->repository(), m_source);
}

TEST_F(IndexParsing, givesAStanzaOfNothingButAnIdentifierItsDefaults)
{
    const auto package = parseOne(QStringLiteral("Package: a"));
    EXPECT_EQ(package->packageID(), QStringLiteral("a"));
    EXPECT_EQ(package->name(), QStringLiteral("a"));
    EXPECT_EQ(package->version(), QStringLiteral("0"));
    EXPECT_EQ(package->author(), QStringLiteral("Unknown"));
    EXPECT_EQ(package->section(), QStringLiteral("Other"));
    EXPECT_TRUE(package->desc().isNull());
    EXPECT_TRUE(package->maintainer().isNull());
    EXPECT_TRUE(package->iconURLString().isNull());
    EXPECT_TRUE(package->depictionURLString().isNull());
    EXPECT_TRUE(package->homepageURLString().isNull());
    EXPECT_TRUE(package->installedVersion().isNull());
}

TEST_F(IndexParsing, takesAFieldThatIsPresentButEmptyAsItIs)
{
    const auto package
        = parseOne(QStringLiteral("Package: a\nName:\nVersion:\nDescription:\nAuthor:\nMaintainer: M\nSection: \n"
                                  "Icon:\nDepiction:\nSileoDepiction: s\nHomepage:\t\n"));
    EXPECT_TRUE(isEmptyText(package->name()));
    EXPECT_TRUE(isEmptyText(package->version()));
    EXPECT_TRUE(isEmptyText(package->desc()));
    EXPECT_TRUE(isEmptyText(package->author()));
    EXPECT_TRUE(isEmptyText(package->section()));
    EXPECT_TRUE(isEmptyText(package->iconURLString()));
    EXPECT_TRUE(isEmptyText(package->depictionURLString()));
    EXPECT_TRUE(isEmptyText(package->homepageURLString()));
    EXPECT_EQ(package->maintainer(), QStringLiteral("M"));
}

TEST_F(IndexParsing, takesTheMaintainerForTheAuthorWhenThereIsNone)
{
    EXPECT_EQ(parseOne(QStringLiteral("Package: a\nMaintainer: M"))->author(), QStringLiteral("M"));
    EXPECT_TRUE(isEmptyText(parseOne(QStringLiteral("Package: a\nMaintainer:"))->author()));
    EXPECT_EQ(parseOne(QStringLiteral("Package: a\nMaintainer: M\nAuthor: A"))->author(), QStringLiteral("A"));
}

TEST_F(IndexParsing, takesTheDepictionsInTheirOrder)
{
    EXPECT_EQ(parseOne(QStringLiteral("Package: a\nModernDepiction: m\nSileoDepiction: s\nDepiction: d"))
                  ->depictionURLString(),
        QStringLiteral("d"));
    EXPECT_EQ(parseOne(QStringLiteral("Package: a\nModernDepiction: m\nSileoDepiction: s"))->depictionURLString(),
        QStringLiteral("s"));
    EXPECT_EQ(parseOne(QStringLiteral("Package: a\nModernDepiction: m"))->depictionURLString(), QStringLiteral("m"));
}

TEST_F(IndexParsing, keepsEverythingBehindTheFirstColon)
{
    EXPECT_EQ(parseOne(QStringLiteral("Package: a\nDepiction:  https://h:80/x:y \t"))->depictionURLString(),
        QStringLiteral("https://h:80/x:y"));
}

TEST_F(IndexParsing, trimsWhiteSpaceOfAllKindsAtBothEnds)
{
    EXPECT_EQ(parseOne(QStringLiteral("Package:\u00a0\t a b \u3000\r"))->packageID(), QStringLiteral("a b"));
}

TEST_F(IndexParsing, takesTheLastOfAFieldThatOccursTwice)
{
    EXPECT_EQ(
        parseOne(QStringLiteral("Package: a\nVersion: 1\nPackage: b\nVersion: 2"))->version(), QStringLiteral("2"));
    EXPECT_EQ(parseOne(QStringLiteral("Package: a\nPackage: b"))->packageID(), QStringLiteral("b"));
}

TEST_F(IndexParsing, knowsFieldNamesOnlyAsTheyAreWritten)
{
    const auto package
        = parseOne(QStringLiteral("Package: a\nname: x\nNAME: x\nName : x\n Name: x\n\tName: x\nNames: x\nXName: x"));
    EXPECT_EQ(package->name(), QStringLiteral("a"));
}

TEST_F(IndexParsing, dropsAStanzaWithoutIdentifier)
{
    EXPECT_TRUE(parse(QStringLiteral("Name: x\nVersion: 1\n")).empty());
    EXPECT_TRUE(parse(QStringLiteral("Package:\nVersion: 1\n")).empty());
    EXPECT_TRUE(parse(QStringLiteral("Package:   \nVersion: 1\n")).empty());
    EXPECT_TRUE(parse(QStringLiteral("Package : a\n")).empty());
}

TEST_F(IndexParsing, dropsAStanzaWhoseLastIdentifierIsEmpty)
{
    EXPECT_TRUE(parse(QStringLiteral("Package: a\nPackage:\n")).empty());
}

TEST_F(IndexParsing, carriesNothingOverFromADroppedStanza)
{
    const auto package = parseOne(QStringLiteral("Name: Lost\nVersion: 9\n\nPackage: a\n"));
    EXPECT_EQ(package->name(), QStringLiteral("a"));
    EXPECT_EQ(package->version(), QStringLiteral("0"));
}

TEST_F(IndexParsing, ignoresLinesWithoutColonAndContinuations)
{
    const auto package
        = parseOne(QStringLiteral("Package: a\nnonsense\nDescription: first\n second\n Version: 9\n\tName: x\n .\n"));
    EXPECT_EQ(package->desc(), QStringLiteral("first"));
    EXPECT_EQ(package->version(), QStringLiteral("0"));
}

TEST_F(IndexParsing, doesNotEndAStanzaAtALineOfBlanks)
{
    EXPECT_EQ(parseOne(QStringLiteral("Package: a\n \nVersion: 2\n"))->version(), QStringLiteral("2"));
}

TEST_F(IndexParsing, makesNothingOfBlankLines)
{
    EXPECT_TRUE(parse(QStringLiteral("")).empty());
    EXPECT_TRUE(parse(QString()).empty());
    EXPECT_TRUE(parse(QStringLiteral("\n\n\n")).empty());
    EXPECT_EQ(idsOf(parse(QStringLiteral("\n\nPackage: a\n\n\n\nPackage: b\n\n\n"))),
        QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
}

TEST_F(IndexParsing, includesALastStanzaWithoutLineEnd)
{
    EXPECT_EQ(idsOf(parse(QStringLiteral("Package: a\n\nPackage: b"))),
        QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
}

TEST_F(IndexParsing, makesOnePackageOfAnIndexWithCarriageReturns)
{
    const auto package
        = parseOne(QStringLiteral("Package: a\r\nVersion: 1\r\nName: A\r\n\r\nPackage: b\r\nVersion: 2\r\n"));
    EXPECT_EQ(package->packageID(), QStringLiteral("b"));
    EXPECT_EQ(package->version(), QStringLiteral("2"));
    EXPECT_EQ(package->name(), QStringLiteral("A"));
}

TEST_F(IndexParsing, keepsAllStanzasOfOneIdentifierInTheirOrder)
{
    const PackageVector packages = parse(QStringLiteral("Package: a\nVersion: 1\n\nPackage: a\nVersion: 2\n"));
    ASSERT_EQ(packages.size(), 2U);
    EXPECT_EQ(packages[0]->version(), QStringLiteral("1"));
    EXPECT_EQ(packages[1]->version(), QStringLiteral("2"));
    EXPECT_NE(packages[0], packages[1]);
}

TEST_F(IndexParsing, takesTheInstalledVersionFromTheStatusFile)
{
    writeStatus("Package: a\nVersion: 1.1\n\nPackage: b\n\nPackage: c\nVersion:\n");
    const PackageVector packages
        = parse(QStringLiteral("Package: a\nVersion: 1.0\n\nPackage: b\n\nPackage: c\n\nPackage: d\n"));
    ASSERT_EQ(packages.size(), 4U);
    EXPECT_EQ(packages[0]->installedVersion(), QStringLiteral("1.1"));
    EXPECT_TRUE(packages[0]->hasUpdate());
    EXPECT_FALSE(packages[1]->installed());
    EXPECT_TRUE(isEmptyText(packages[2]->installedVersion()));
    EXPECT_TRUE(packages[2]->installed());
    EXPECT_FALSE(packages[3]->installed());
}

TEST_F(IndexParsing, offersAnUpdateOfAnInstalledPackageWhoseStanzaHasNoVersion)
{
    writeStatus("Package: a\nVersion: 1.1\n");
    EXPECT_TRUE(parseOne(QStringLiteral("Package: a"))->hasUpdate());
}

TEST_F(IndexParsing, freezesTheInstalledVersionIntoTheRecord)
{
    const auto package = parseOne(QStringLiteral("Package: a"));
    writeStatus("Package: a\nVersion: 1\n");
    EXPECT_FALSE(package->installed());
    EXPECT_TRUE(parseOne(QStringLiteral("Package: a"))->installed());
}

TEST_F(IndexParsing, changesNothingInTheCatalog)
{
    parse(QStringLiteral("Package: a"));
    EXPECT_TRUE(manager().packages().empty());
    EXPECT_FALSE(m_source->lastRefresh().isValid());
}

TEST_F(IndexParsing, doesNotCareWhereThePiecesAreCut)
{
    const QByteArray text
        = "Package: one\nVersion: 1\n\nPackage: tw\xc3\xb6\nDescription: d\n more: x\n\nPackage: three";
    const DpkgStatus status;
    for (qsizetype first = 0; first <= text.size(); ++first) {
        for (qsizetype second = first; second <= text.size(); second += 5) {
            IndexParser parser(m_source, status);
            for (const QByteArray& piece : { text.left(first), text.mid(first, second - first), text.mid(second) })
                parser.feed({ piece.constData(), static_cast<std::size_t>(piece.size()) });
            const PackageVector packages = parser.finish();
            ASSERT_EQ(
                idsOf(packages), QStringList({ QStringLiteral("one"), QStringLiteral("twö"), QStringLiteral("three") }))
                << first << " " << second;
            ASSERT_EQ(packages[1]->desc(), QStringLiteral("d"));
        }
    }
}

TEST_F(IndexParsing, takesAByteOrderMarkForPartOfTheFirstFieldsName)
{
    EXPECT_EQ(
        idsOf(parse(QStringLiteral("\ufeffPackage: a\nVersion: 1\n\nPackage: b\n"))), QStringList(QStringLiteral("b")));
    EXPECT_EQ(parseOne(QStringLiteral("\ufeffVersion: 1\nPackage: a\n"))->version(), QStringLiteral("0"));
}

TEST_F(IndexParsing, doesNotLoseAnIdentifierThatIsAByteOrderMark)
{
    const auto package = parseOne(QStringLiteral("Package: \ufeff\nName: \ufeffa\n"));
    EXPECT_EQ(package->packageID(), QStringLiteral("\ufeff"));
    EXPECT_EQ(package->name(), QStringLiteral("\ufeffa"));
}

TEST_F(IndexParsing, keepsTheTextsOfTheLastPackageThatIsHeld)
{
    VeskPackagePtr package;
    {
        const PackageVector packages = parse(QStringLiteral("Package: a\nDescription: kept\n\nPackage: b\n"));
        package = packages.front();
    }
    EXPECT_EQ(package->desc(), QStringLiteral("kept"));
}
