#include "catalog/records/RepositoryURL.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(RepositoryURL, keepsTheTextItWasMadeFromToTheLetter)
{
    for (const QString& text : { u"https://Example.ORG"_s, u"https://h/a/../b//c"_s, u"HTTP://h:80/%7Euser"_s,
             u"https://h/?q#f"_s, u"https://bücher.example/ä"_s, u"repo.example"_s, u"http://"_s, u"https://h/%41"_s,
             u"https://a_b.example"_s }) {
        const auto url = RepositoryURL::fromString(text);
        ASSERT_TRUE(url.has_value()) << text.toStdString();
        EXPECT_EQ(url->absoluteString(), text);
    }
}

TEST(RepositoryURL, isNotMadeFromNullOrEmptyText)
{
    EXPECT_FALSE(RepositoryURL::fromString(QString()).has_value());
    EXPECT_FALSE(RepositoryURL::fromString(u""_s).has_value());
}

TEST(RepositoryURL, refusesBlanksAndControlCharactersAnywhere)
{
    for (const QString& text : { u"https://exa mple.org"_s, u" https://h"_s, u"https://h "_s, u"https://h/a b"_s,
             u"https://h/\t"_s, u"https://h/\n"_s, u"https://h/\u00a0"_s, u"https://h/\u3000"_s, u"https://h/\u0001"_s,
             u"https://h/\u007f"_s })
        EXPECT_FALSE(RepositoryURL::fromString(text).has_value()) << text.toStdString();
}

TEST(RepositoryURL, refusesCharactersThatNoUrlCanHold)
{
    for (const QChar c : u"\"<>\\^`{|}"_s)
        EXPECT_FALSE(RepositoryURL::fromString(u"https://h/"_s + c).has_value()) << c.toLatin1();
}

TEST(RepositoryURL, refusesAPercentSignWithoutTwoDigitsBehindIt)
{
    for (const QString& text :
        { u"https://h/%"_s, u"https://h/%4"_s, u"https://h/%zz"_s, u"https://h/%4g"_s, u"https://h/%%41"_s })
        EXPECT_FALSE(RepositoryURL::fromString(text).has_value()) << text.toStdString();
}

TEST(RepositoryURL, refusesHalfACharacterPair)
{
    EXPECT_FALSE(RepositoryURL::fromString(u"https://h/"_s + QChar(0xd83d)).has_value());
    EXPECT_TRUE(RepositoryURL::fromString(u"https://h/\U0001F600"_s).has_value());
}

TEST(RepositoryURL, refusesHostsAndPortsThatCannotBeAndTextsThatBeginWithAColon)
{
    for (const QString& text : { u"://x"_s, u"1http://x"_s, u"https://h:99999"_s, u"https://h:x"_s, u"http://[::1"_s })
        EXPECT_FALSE(RepositoryURL::fromString(text).has_value()) << text.toStdString();
}

TEST(RepositoryURL, needsNeitherSchemeNorHost)
{
    EXPECT_TRUE(RepositoryURL::fromString(u"repo.example"_s)->scheme().isEmpty());
    EXPECT_TRUE(RepositoryURL::fromString(u"repo.example"_s)->host().isNull());
    EXPECT_EQ(RepositoryURL::fromString(u"http://"_s)->scheme(), u"http"_s);
    EXPECT_TRUE(RepositoryURL::fromString(u"http://"_s)->host().isNull());
    EXPECT_TRUE(RepositoryURL::fromString(u"mailto:a@b"_s)->host().isNull());
}

TEST(RepositoryURL, givesTheHostAsItIsWritten)
{
    const std::pair<QString, QString> hosts[] = {
        { u"https://Repo.Example.ORG/x"_s, u"Repo.Example.ORG"_s },
        { u"https://h"_s, u"h"_s },
        { u"https://h?q=a@b"_s, u"h"_s },
        { u"https://h#f"_s, u"h"_s },
        { u"https://user:word@h:8080/x"_s, u"h"_s },
        { u"http://[::1]:80/x"_s, u"::1"_s },
        { u"https://HTTP://x.org/"_s, u"HTTP"_s },
        { u"https://bücher.example/"_s, u"bücher.example"_s },
    };
    for (const auto& [text, host] : hosts)
        EXPECT_EQ(RepositoryURL::fromString(text)->host(), host) << text.toStdString();
}
