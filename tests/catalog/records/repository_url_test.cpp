#include "catalog/records/RepositoryURL.h"

#include <gtest/gtest.h>

TEST(RepositoryURL, keepsTheTextItWasMadeFromToTheLetter)
{
    for (const QString& text : { QStringLiteral("https://Example.ORG"), QStringLiteral("https://h/a/../b//c"),
             QStringLiteral("HTTP://h:80/%7Euser"), QStringLiteral("https://h/?q#f"),
             QStringLiteral("https://bücher.example/ä"), QStringLiteral("repo.example"), QStringLiteral("http://"),
             QStringLiteral("https://h/%41"), QStringLiteral("https://a_b.example") }) {
        const auto url = RepositoryURL::fromString(text);
        ASSERT_TRUE(url.has_value()) << text.toStdString();
        EXPECT_EQ(url->absoluteString(), text);
    }
}

TEST(RepositoryURL, isNotMadeFromNullOrEmptyText)
{
    EXPECT_FALSE(RepositoryURL::fromString(QString()).has_value());
    EXPECT_FALSE(RepositoryURL::fromString(QStringLiteral("")).has_value());
}

TEST(RepositoryURL, refusesBlanksAndControlCharactersAnywhere)
{
    for (const QString& text : { QStringLiteral("https://exa mple.org"), QStringLiteral(" https://h"),
             QStringLiteral("https://h "), QStringLiteral("https://h/a b"), QStringLiteral("https://h/\t"),
             QStringLiteral("https://h/\n"), QStringLiteral("https://h/\u00a0"), QStringLiteral("https://h/\u3000"),
             QStringLiteral("https://h/\u0001"), QStringLiteral("https://h/\u007f") })
        EXPECT_FALSE(RepositoryURL::fromString(text).has_value()) << text.toStdString();
}

TEST(RepositoryURL, refusesCharactersThatNoUrlCanHold)
{
    for (const QChar c : QStringLiteral("\"<>\\^`{|}"))
        EXPECT_FALSE(RepositoryURL::fromString(QStringLiteral("https://h/") + c).has_value()) << c.toLatin1();
}

TEST(RepositoryURL, refusesAPercentSignWithoutTwoDigitsBehindIt)
{
    for (const QString& text :
        { QStringLiteral("https://h/%"), QStringLiteral("https://h/%4"), QStringLiteral("https://h/%zz"),
            QStringLiteral("https://h/%4g"), QStringLiteral("https://h/%%41"), QStringLiteral("%zz.example") })
        EXPECT_FALSE(RepositoryURL::fromString(text).has_value()) << text.toStdString();
}

TEST(RepositoryURL, refusesHalfACharacterPair)
{
    EXPECT_FALSE(RepositoryURL::fromString(QStringLiteral("https://h/") + QChar(0xd83d)).has_value());
    EXPECT_TRUE(RepositoryURL::fromString(QStringLiteral("https://h/\U0001F600")).has_value());
}

TEST(RepositoryURL, refusesHostsAndPortsThatCannotBeAndTextsThatBeginWithAColon)
{
    for (const QString& text : { QStringLiteral("://x"), QStringLiteral("1http://x"), QStringLiteral("https://h:99999"),
             QStringLiteral("https://h:x"), QStringLiteral("http://[::1") })
        EXPECT_FALSE(RepositoryURL::fromString(text).has_value()) << text.toStdString();
}

TEST(RepositoryURL, needsNeitherSchemeNorHost)
{
    EXPECT_TRUE(RepositoryURL::fromString(QStringLiteral("repo.example"))->scheme().isEmpty());
    EXPECT_TRUE(RepositoryURL::fromString(QStringLiteral("repo.example"))->host().isNull());
    EXPECT_EQ(RepositoryURL::fromString(QStringLiteral("http://"))->scheme(), QStringLiteral("http"));
    EXPECT_TRUE(RepositoryURL::fromString(QStringLiteral("http://"))->host().isNull());
    EXPECT_TRUE(RepositoryURL::fromString(QStringLiteral("mailto:a@b"))->host().isNull());
}

TEST(RepositoryURL, givesTheHostAsItIsWritten)
{
    const std::pair<QString, QString> hosts[] = {
        { QStringLiteral("https://Repo.Example.ORG/x"), QStringLiteral("Repo.Example.ORG") },
        { QStringLiteral("https://h"), QStringLiteral("h") },
        { QStringLiteral("https://h?q=a@b"), QStringLiteral("h") },
        { QStringLiteral("https://h#f"), QStringLiteral("h") },
        { QStringLiteral("https://user:word@h:8080/x"), QStringLiteral("h") },
        { QStringLiteral("http://[::1]:80/x"), QStringLiteral("::1") },
        { QStringLiteral("https://HTTP://x.org/"), QStringLiteral("HTTP") },
        { QStringLiteral("https://bücher.example/"), QStringLiteral("bücher.example") },
    };
    for (const auto& [text, host] : hosts)
        EXPECT_EQ(RepositoryURL::fromString(text)->host(), host) << text.toStdString();
}
