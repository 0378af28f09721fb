#include "actions/HandOff.h"

#include "tests/support/RecordingOpener.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

VeskPackage package(const QString& identifier, const QString& source)
{
    VeskPackage result;
    result.setPackageID(identifier);
    result.setRepository(VeskRepository::repositoryWithURLString(source, {}));
    return result;
}

const QStringList everyScheme
    = { QStringLiteral("sileo"), QStringLiteral("zbra"), QStringLiteral("apt"), QStringLiteral("cydia") };

// What is asked and opened where the schemes have a handler.
OpenerRecord recordOf(const QStringList& urls, const QStringList& schemes)
{
    OpenerRecord record;
    RecordingOpener opener(record, schemes);
    openFirstURL(urls, opener);
    return record;
}

QStringList openedFor(const QStringList& urls, const QStringList& schemes)
{
    return recordOf(urls, schemes).openedURLs();
}

} // namespace

TEST(HandOff, offersAPackageByFourURLsInTheirOrder)
{
    const auto urls
        = handOffURLs(package(QStringLiteral("org.example.one"), QStringLiteral("https://repo.example.org")));
    EXPECT_EQ(urls,
        (QStringList{ QStringLiteral("sileo://package/org.example.one"),
            QStringLiteral("zbra://package/org.example.one"), QStringLiteral("apt://repo.example.org/org.example.one"),
            QStringLiteral("cydia://package/org.example.one") }));
}

TEST(HandOff, offersASourceByFourURLsInTheirOrderWithItsTextAsStored)
{
    const auto source = VeskRepository::repositoryWithURLString(QStringLiteral("https://repo.example.org/sub/"), {});
    const auto urls = handOffURLs(*source);
    EXPECT_EQ(urls,
        (QStringList{ QStringLiteral("sileo://source/https://repo.example.org/sub/"),
            QStringLiteral("zbra://sources/add/https://repo.example.org/sub/"),
            QStringLiteral("cydia://url/https://cydia.saurik.com/api/share#?source=https://repo.example.org/sub/"),
            QStringLiteral("apt://https://repo.example.org/sub/") }));
}

TEST(HandOff, opensTheFirstURLThatHasAHandlerAndAsksNoFurther)
{
    const auto urls = handOffURLs(package(QStringLiteral("one"), QStringLiteral("https://example.org")));
    for (int first = 0; first < urls.size(); ++first) {
        const OpenerRecord record = recordOf(urls, everyScheme.mid(first));
        EXPECT_EQ(record.openedURLs(), QStringList{ urls[first] });
        EXPECT_EQ(record.asked, urls.mid(0, first + 1));
    }
}

TEST(HandOff, opensASourceInTheFirstPackageManagerThatHasAHandler)
{
    const auto urls
        = handOffURLs(*VeskRepository::repositoryWithURLString(QStringLiteral("https://example.org/a"), {}));
    const QStringList order
        = { QStringLiteral("sileo"), QStringLiteral("zbra"), QStringLiteral("cydia"), QStringLiteral("apt") };
    for (int first = 0; first < urls.size(); ++first)
        EXPECT_EQ(openedFor(urls, order.mid(first)), QStringList{ urls[first] });
}

TEST(HandOff, dropsThePathAndThePortOfThePackagesSource)
{
    const auto urls = handOffURLs(package(QStringLiteral("one"), QStringLiteral("http://example.org:8080/deep/path/")));
    EXPECT_EQ(openedFor(urls, { QStringLiteral("apt") }), QStringList{ QStringLiteral("apt://example.org/one") });
}

TEST(HandOff, usesAnEmptyHostWhenTheSourceHasNone)
{
    for (const QString& source :
        { QString(), QStringLiteral(""), QStringLiteral("no url at all"), QStringLiteral("/path") })
        EXPECT_EQ(handOffURLs(package(QStringLiteral("one"), source))[2], QStringLiteral("apt:///one"));
    VeskPackage homeless;
    homeless.setPackageID(QStringLiteral("one"));
    EXPECT_EQ(handOffURLs(homeless)[2], QStringLiteral("apt:///one"));
}

TEST(HandOff, opensNothingForAPackageIdentifierWithABlank)
{
    const auto urls = handOffURLs(package(QStringLiteral("two words"), QStringLiteral("https://example.org")));
    EXPECT_EQ(urls.constFirst(), QStringLiteral("sileo://package/two words"));
    const OpenerRecord record = recordOf(urls, everyScheme);
    EXPECT_TRUE(record.opened.empty());
    EXPECT_TRUE(record.asked.isEmpty());
}

TEST(HandOff, passesOverAnInvalidURLAndOpensTheNext)
{
    const QStringList urls = { QStringLiteral("sileo://two words"), QString(), QStringLiteral("zbra://one") };
    EXPECT_EQ(openedFor(urls, everyScheme), QStringList{ QStringLiteral("zbra://one") });
}

TEST(HandOff, opensNothingWithoutAHandler)
{
    const auto urls = handOffURLs(package(QStringLiteral("one"), QStringLiteral("https://example.org")));
    EXPECT_TRUE(openedFor(urls, {}).isEmpty());
    EXPECT_TRUE(openedFor({}, everyScheme).isEmpty());
}

TEST(HandOff, insertsValuesUnescapedAndOpensThemVerbatim)
{
    const QString odd = QStringLiteral("Ünï+cödé~%41'$(id);&x=1#?");
    const auto urls = handOffURLs(package(odd, QStringLiteral("https://example.org")));
    EXPECT_EQ(openedFor(urls, everyScheme), QStringList{ QStringLiteral("sileo://package/") + odd });
}
