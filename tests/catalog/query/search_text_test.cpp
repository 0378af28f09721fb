#include "catalog/query/SearchText.h"

#include <gtest/gtest.h>

namespace {

QString allCharacters()
{
    QString text;
    for (char32_t code = 0; code < 0x110000; ++code) {
        if (code < 0xd800 || code > 0xdfff)
            text += QString::fromUcs4(&code, 1);
    }
    return text;
}

} // namespace

TEST(SearchText, lowerCasesEveryCharacterAsQtDoesWhereverThePiecesAreCut)
{
    const QString all = allCharacters();
    const QByteArray expected = all.toLower().toUtf8();
    for (const int shift : { 0, 1, 2, 255 })
        EXPECT_EQ(SearchText::folded(QString(shift, u'a') + all), QByteArray(shift, 'a') + expected) << shift;
}

TEST(SearchText, lowerCasesLettersThatGrowInLinearTime)
{
    // Each of these letters becomes two: to move the rest of the text for every one would take many minutes.
    constexpr qsizetype count = qsizetype(4) * 1024 * 1024;
    const QByteArray folded = SearchText::folded(QString(count, QChar(0x130)));
    EXPECT_EQ(folded.size(), 3 * count);
    EXPECT_TRUE(folded.startsWith("i\xcc\x87i"));
    EXPECT_TRUE(folded.endsWith("\x87i\xcc\x87"));
}

TEST(SearchText, findsAcrossThePlacesWhereALongFieldWasCut)
{
    VeskPackage package;
    package.setDesc(QString(QStringLiteral("İ").repeated(254)) + QStringLiteral("ÄÖÜ😀ß"));
    SearchText text;
    text.add(package);
    const QByteArray query = SearchText::folded(QStringLiteral("äöü😀ß"));
    EXPECT_EQ(text.find({ query.constData(), static_cast<std::size_t>(query.size()) }).size(), 1U);
}

TEST(SearchText, countsItsBytes)
{
    VeskPackage package;
    package.setDesc(QString(1000, QChar(0x130)));
    SearchText text;
    const std::size_t before = text.byteSize();
    text.add(package);
    EXPECT_GE(text.byteSize() - before, 3000U);
    EXPECT_LE(text.byteSize() - before, 3010U);
}
