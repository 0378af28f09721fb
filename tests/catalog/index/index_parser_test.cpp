#include "catalog/index/IndexParser.h"
#include "tests/catalog/CatalogFixture.h"

using namespace Qt::StringLiterals;

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

    VeskRepositoryPtr m_source = VeskRepository::repositoryWithURLString(u"https://a.example"_s, u"A"_s);
};

namespace {

bool isEmptyText(const QString& text)
{
    return text.isEmpty() && !text.isNull();
}

} // namespace

TEST_F(IndexParsing, fillsEveryFieldFromItsLine)
{
    const auto package = parseOne(u"Package: org.a\nName: Alpha\nVersion: 1.2\nDescription: It is\nAuthor: Ann <a@b>\n"
                                  "Maintainer: Max\nSection: Tools/Net\nIcon: file:///i.png\nDepiction: https://d/\n"
                                  "Homepage: https://h/\nArchitecture: all\n"_s);
    EXPECT_EQ(package->packageID(), u"org.a"_s);
    EXPECT_EQ(package->name(), u"Alpha"_s);
    EXPECT_EQ(package->version(), u"1.2"_s);
    EXPECT_EQ(package->desc(), u"It is"_s);
    EXPECT_EQ(package->author(), u"Ann <a@b>"_s);
    EXPECT_EQ(package->maintainer(), u"Max"_s);
    EXPECT_EQ(package->section(), u"Tools/Net"_s);
    EXPECT_EQ(package->iconURLString(), u"file:///i.png"_s);
    EXPECT_EQ(package->depictionURLString(), u"https://d/"_s);
    EXPECT_EQ(package->homepageURLString(), u"https://h/"_s);
    EXPECT_EQ(package->repository(), m_source);
}

TEST_F(IndexParsing, givesAStanzaOfNothingButAnIdentifierItsDefaults)
{
    const auto package = parseOne(u"Package: a"_s);
    EXPECT_EQ(package->packageID(), u"a"_s);
    EXPECT_EQ(package->name(), u"a"_s);
    EXPECT_EQ(package->version(), u"0"_s);
    EXPECT_EQ(package->author(), u"Unknown"_s);
    EXPECT_EQ(package->section(), u"Other"_s);
    EXPECT_TRUE(package->desc().isNull());
    EXPECT_TRUE(package->maintainer().isNull());
    EXPECT_TRUE(package->iconURLString().isNull());
    EXPECT_TRUE(package->depictionURLString().isNull());
    EXPECT_TRUE(package->homepageURLString().isNull());
    EXPECT_TRUE(package->installedVersion().isNull());
}

TEST_F(IndexParsing, takesAFieldThatIsPresentButEmptyAsItIs)
{
    const auto package = parseOne(u"Package: a\nName:\nVersion:\nDescription:\nAuthor:\nMaintainer: M\nSection: \n"
                                  "Icon:\nDepiction:\nSileoDepiction: s\nHomepage:\t\n"_s);
    EXPECT_TRUE(isEmptyText(package->name()));
    EXPECT_TRUE(isEmptyText(package->version()));
    EXPECT_TRUE(isEmptyText(package->desc()));
    EXPECT_TRUE(isEmptyText(package->author()));
    EXPECT_TRUE(isEmptyText(package->section()));
    EXPECT_TRUE(isEmptyText(package->iconURLString()));
    EXPECT_TRUE(isEmptyText(package->depictionURLString()));
    EXPECT_TRUE(isEmptyText(package->homepageURLString()));
    EXPECT_EQ(package->maintainer(), u"M"_s);
}

TEST_F(IndexParsing, takesTheMaintainerForTheAuthorWhenThereIsNone)
{
    EXPECT_EQ(parseOne(u"Package: a\nMaintainer: M"_s)->author(), u"M"_s);
    EXPECT_TRUE(isEmptyText(parseOne(u"Package: a\nMaintainer:"_s)->author()));
    EXPECT_EQ(parseOne(u"Package: a\nMaintainer: M\nAuthor: A"_s)->author(), u"A"_s);
}

TEST_F(IndexParsing, takesTheDepictionsInTheirOrder)
{
    EXPECT_EQ(
        parseOne(u"Package: a\nModernDepiction: m\nSileoDepiction: s\nDepiction: d"_s)->depictionURLString(), u"d"_s);
    EXPECT_EQ(parseOne(u"Package: a\nModernDepiction: m\nSileoDepiction: s"_s)->depictionURLString(), u"s"_s);
    EXPECT_EQ(parseOne(u"Package: a\nModernDepiction: m"_s)->depictionURLString(), u"m"_s);
}

TEST_F(IndexParsing, keepsEverythingBehindTheFirstColon)
{
    EXPECT_EQ(parseOne(u"Package: a\nDepiction:  https://h:80/x:y \t"_s)->depictionURLString(), u"https://h:80/x:y"_s);
}

TEST_F(IndexParsing, trimsWhiteSpaceOfAllKindsAtBothEnds)
{
    EXPECT_EQ(parseOne(u"Package:\u00a0\t a b \u3000\r"_s)->packageID(), u"a b"_s);
}

TEST_F(IndexParsing, takesTheLastOfAFieldThatOccursTwice)
{
    EXPECT_EQ(parseOne(u"Package: a\nVersion: 1\nPackage: b\nVersion: 2"_s)->version(), u"2"_s);
    EXPECT_EQ(parseOne(u"Package: a\nPackage: b"_s)->packageID(), u"b"_s);
}

TEST_F(IndexParsing, knowsFieldNamesOnlyAsTheyAreWritten)
{
    const auto package = parseOne(u"Package: a\nname: x\nNAME: x\nName : x\n Name: x\n\tName: x\nNames: x\nXName: x"_s);
    EXPECT_EQ(package->name(), u"a"_s);
}

TEST_F(IndexParsing, dropsAStanzaWithoutIdentifier)
{
    EXPECT_TRUE(parse(u"Name: x\nVersion: 1\n"_s).empty());
    EXPECT_TRUE(parse(u"Package:\nVersion: 1\n"_s).empty());
    EXPECT_TRUE(parse(u"Package:   \nVersion: 1\n"_s).empty());
    EXPECT_TRUE(parse(u"Package : a\n"_s).empty());
}

TEST_F(IndexParsing, dropsAStanzaWhoseLastIdentifierIsEmpty)
{
    EXPECT_TRUE(parse(u"Package: a\nPackage:\n"_s).empty());
}

TEST_F(IndexParsing, carriesNothingOverFromADroppedStanza)
{
    const auto package = parseOne(u"Name: Lost\nVersion: 9\n\nPackage: a\n"_s);
    EXPECT_EQ(package->name(), u"a"_s);
    EXPECT_EQ(package->version(), u"0"_s);
}

TEST_F(IndexParsing, ignoresLinesWithoutColonAndContinuations)
{
    const auto package = parseOne(u"Package: a\nnonsense\nDescription: first\n second\n Version: 9\n\tName: x\n .\n"_s);
    EXPECT_EQ(package->desc(), u"first"_s);
    EXPECT_EQ(package->version(), u"0"_s);
}

TEST_F(IndexParsing, doesNotEndAStanzaAtALineOfBlanks)
{
    EXPECT_EQ(parseOne(u"Package: a\n \nVersion: 2\n"_s)->version(), u"2"_s);
}

TEST_F(IndexParsing, makesNothingOfBlankLines)
{
    EXPECT_TRUE(parse(u""_s).empty());
    EXPECT_TRUE(parse(QString()).empty());
    EXPECT_TRUE(parse(u"\n\n\n"_s).empty());
    EXPECT_EQ(idsOf(parse(u"\n\nPackage: a\n\n\n\nPackage: b\n\n\n"_s)), QStringList({ u"a"_s, u"b"_s }));
}

TEST_F(IndexParsing, includesALastStanzaWithoutLineEnd)
{
    EXPECT_EQ(idsOf(parse(u"Package: a\n\nPackage: b"_s)), QStringList({ u"a"_s, u"b"_s }));
}

TEST_F(IndexParsing, makesOnePackageOfAnIndexWithCarriageReturns)
{
    const auto package = parseOne(u"Package: a\r\nVersion: 1\r\nName: A\r\n\r\nPackage: b\r\nVersion: 2\r\n"_s);
    EXPECT_EQ(package->packageID(), u"b"_s);
    EXPECT_EQ(package->version(), u"2"_s);
    EXPECT_EQ(package->name(), u"A"_s);
}

TEST_F(IndexParsing, keepsAllStanzasOfOneIdentifierInTheirOrder)
{
    const PackageVector packages = parse(u"Package: a\nVersion: 1\n\nPackage: a\nVersion: 2\n"_s);
    ASSERT_EQ(packages.size(), 2U);
    EXPECT_EQ(packages[0]->version(), u"1"_s);
    EXPECT_EQ(packages[1]->version(), u"2"_s);
    EXPECT_NE(packages[0], packages[1]);
}

TEST_F(IndexParsing, takesTheInstalledVersionFromTheStatusFile)
{
    writeStatus("Package: a\nVersion: 1.1\n\nPackage: b\n\nPackage: c\nVersion:\n");
    const PackageVector packages = parse(u"Package: a\nVersion: 1.0\n\nPackage: b\n\nPackage: c\n\nPackage: d\n"_s);
    ASSERT_EQ(packages.size(), 4U);
    EXPECT_EQ(packages[0]->installedVersion(), u"1.1"_s);
    EXPECT_TRUE(packages[0]->hasUpdate());
    EXPECT_FALSE(packages[1]->installed());
    EXPECT_TRUE(isEmptyText(packages[2]->installedVersion()));
    EXPECT_TRUE(packages[2]->installed());
    EXPECT_FALSE(packages[3]->installed());
}

TEST_F(IndexParsing, offersAnUpdateOfAnInstalledPackageWhoseStanzaHasNoVersion)
{
    writeStatus("Package: a\nVersion: 1.1\n");
    EXPECT_TRUE(parseOne(u"Package: a"_s)->hasUpdate());
}

TEST_F(IndexParsing, freezesTheInstalledVersionIntoTheRecord)
{
    const auto package = parseOne(u"Package: a"_s);
    writeStatus("Package: a\nVersion: 1\n");
    EXPECT_FALSE(package->installed());
    EXPECT_TRUE(parseOne(u"Package: a"_s)->installed());
}

TEST_F(IndexParsing, changesNothingInTheCatalog)
{
    parse(u"Package: a"_s);
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
            ASSERT_EQ(idsOf(packages), QStringList({ u"one"_s, u"twö"_s, u"three"_s })) << first << " " << second;
            ASSERT_EQ(packages[1]->desc(), u"d"_s);
        }
    }
}

TEST_F(IndexParsing, takesAByteOrderMarkForPartOfTheFirstFieldsName)
{
    EXPECT_EQ(idsOf(parse(u"\ufeffPackage: a\nVersion: 1\n\nPackage: b\n"_s)), QStringList(u"b"_s));
    EXPECT_EQ(parseOne(u"\ufeffVersion: 1\nPackage: a\n"_s)->version(), u"0"_s);
}

TEST_F(IndexParsing, doesNotLoseAnIdentifierThatIsAByteOrderMark)
{
    const auto package = parseOne(u"Package: \ufeff\nName: \ufeffa\n"_s);
    EXPECT_EQ(package->packageID(), u"\ufeff"_s);
    EXPECT_EQ(package->name(), u"\ufeffa"_s);
}

TEST_F(IndexParsing, keepsTheTextsOfTheLastPackageThatIsHeld)
{
    VeskPackagePtr package;
    {
        const PackageVector packages = parse(u"Package: a\nDescription: kept\n\nPackage: b\n"_s);
        package = packages.front();
    }
    EXPECT_EQ(package->desc(), u"kept"_s);
}
