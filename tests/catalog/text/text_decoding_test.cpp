#include "catalog/text/TextDecoding.h"

#include <QString>

#include <gtest/gtest.h>

TEST(Utf8Check, acceptsCharactersOfEveryLengthAndTheirBounds)
{
    EXPECT_TRUE(isUtf8(""));
    EXPECT_TRUE(isUtf8("plain ASCII of more than eight bytes"));
    EXPECT_TRUE(isUtf8("\xc2\x80 \xdf\xbf \xe0\xa0\x80 \xed\x9f\xbf \xee\x80\x80 \xef\xbf\xbf"));
    EXPECT_TRUE(isUtf8("\xf0\x90\x80\x80 \xf4\x8f\xbf\xbf"));
    EXPECT_TRUE(isUtf8({ "a\0b", 3 }));
}

TEST(Utf8Check, refusesOverlongFormsSurrogatesAndWhatIsBeyondTheLastCharacter)
{
    for (const char* bytes : { "\xc0\x80", "\xc1\xbf", "\xe0\x9f\xbf", "\xf0\x8f\xbf\xbf", "\xed\xa0\x80",
             "\xed\xbf\xbf", "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xff", "\xfe" })
        EXPECT_FALSE(isUtf8(bytes));
}

TEST(Utf8Check, refusesStrayAndMissingContinuations)
{
    for (const char* bytes : { "\x80", "a\xbf", "\xc3", "\xe2\x82", "\xf0\x9f\x98", "\xc3(", "\xe2\x82(",
             "12345678\xc3", "\xc3zzzzzzzz\xa9", "\xe2\x82zzzzzzzz\xac" })
        EXPECT_FALSE(isUtf8(bytes));
}

TEST(Utf8Check, doesNotCareWhereThePiecesAreCut)
{
    const QByteArray text = "12345678 \xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80 abcdefgh";
    for (qsizetype cut = 0; cut <= text.size(); ++cut) {
        Utf8Check check;
        EXPECT_TRUE(check.feed(viewOf(text.left(cut))));
        EXPECT_TRUE(check.feed(viewOf(text.mid(cut))));
        EXPECT_TRUE(check.isComplete());
    }
}

TEST(TextOfUtf8, keepsByteOrderMarksAtTheBeginningOfAValue)
{
    for (const QString& text :
        { QStringLiteral(u"\ufeff"), QStringLiteral(u"\ufeff\ufeffa"), QStringLiteral(u"a\ufeff") })
        EXPECT_EQ(textOf(viewOf(text.toUtf8())), text);
}

TEST(TextOfUtf8, tellsNullFromEmpty)
{
    EXPECT_TRUE(textOf({}).isNull());
    EXPECT_FALSE(textOf("").isNull());
    EXPECT_TRUE(textOf("").isEmpty());
}

TEST(Utf8FromLatin1, turnsEveryByteIntoTheCharacterOfItsNumber)
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(static_cast<char>(byte));
    EXPECT_EQ(utf8FromLatin1(viewOf(bytes)), QString::fromLatin1(bytes).toUtf8());
}

TEST(FirstCharacters, areSoManyWhateverTheirSize)
{
    const std::string text = "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80z";
    const std::vector<std::size_t> ends{ 0, 1, 3, 6, 10, 11, 11 };
    for (std::size_t count = 0; count < ends.size(); ++count)
        EXPECT_EQ(firstCharacters(text, count), text.substr(0, ends[count])) << count;
}

TEST(FirstBytes, endBetweenTwoCharacters)
{
    const std::string text = "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80z";
    const std::vector<std::size_t> ends{ 0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 11, 11 };
    for (std::size_t count = 0; count < ends.size(); ++count)
        EXPECT_EQ(firstBytes(text, count), text.substr(0, ends[count])) << count;
}

TEST(FirstBytes, areNoneOfAFirstCharacterThatIsLarger)
{
    const std::string text = "\xe2\x82\xac\xc3\xa9";
    const std::vector<std::size_t> ends{ 0, 0, 0, 3, 3, 5 };
    for (std::size_t count = 0; count < ends.size(); ++count)
        EXPECT_EQ(firstBytes(text, count), text.substr(0, ends[count])) << count;
    EXPECT_EQ(firstBytes("\x82\x82\x82", 2), "") << "nor of what begins within a character";
}

TEST(TrimmedUtf8, takesAwayTheSameWhiteSpaceAsForAnyText)
{
    for (char16_t code = 1; code < 0xd800; ++code) {
        const QString text = QChar(code) + QStringLiteral("a") + QChar(code) + QStringLiteral("b") + QChar(code);
        const QByteArray utf8 = text.toUtf8();
        const std::string_view trimmed = trimmedUtf8(viewOf(utf8));
        ASSERT_EQ(QString::fromUtf8(trimmed.data(), static_cast<qsizetype>(trimmed.size())), text.trimmed())
            << int(code);
    }
}

TEST(TrimmedUtf8, leavesAnEmptyTextAndNotNullOfBlanksAlone)
{
    EXPECT_TRUE(trimmedUtf8(" \t\r\n\xc2\xa0\xe3\x80\x80").empty());
    EXPECT_NE(trimmedUtf8(" \t").data(), nullptr);
    EXPECT_TRUE(trimmedUtf8("").empty());
}
