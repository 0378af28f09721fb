#include "catalog/query/SearchText.h"

#include "catalog/records/RecordWriter.h"
#include "catalog/text/TextDecoding.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

// Of few letters, so that much is found and neighbours have much in common.
std::string randomWord(std::mt19937& random, std::size_t size)
{
    static const std::vector<std::string> letters{ "a", "A", "b", "B", " ", "Z", "[", "\xc3\x84", "\xc3\xa4",
        "\xc4\xb0", "i", "\xe2\x84\xaa", "k" };
    std::string word;
    for (; size > 0; --size)
        word += letters[random() % letters.size()];
    return word;
}

// Author, description, identifier and name.
std::vector<std::string> randomFields(std::mt19937& random)
{
    static std::vector<std::string> last(4);
    for (std::string& field : last) {
        if (random() % 2 == 0)
            field = randomWord(random, random() % 40);
    }
    return last;
}

PackageTexts<std::string_view> textsOf(const std::vector<std::string>& fields)
{
    PackageTexts<std::string_view> texts;
    texts[PackageText::Author] = fields[0];
    texts[PackageText::Desc] = fields[1];
    texts[PackageText::PackageID] = fields[2];
    texts[PackageText::Name] = fields[3];
    return texts;
}

std::vector<std::uint32_t> plainlyFound(const std::vector<std::vector<std::string>>& packages, const std::string& query)
{
    const auto lower = [](const std::string& text) { return QString::fromStdString(text).toLower(); };
    std::vector<std::uint32_t> places;
    for (std::uint32_t place = 0; place < packages.size(); ++place) {
        const std::vector<std::string>& fields = packages[place];
        if (std::any_of(fields.begin(), fields.end(),
                [&](const std::string& field) { return lower(field).contains(lower(query)); }))
            places.push_back(place);
    }
    return places;
}

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

TEST(SearchText, lowerCasesACharacterWhereverItStandsBetweenOrdinaryLetters)
{
    const QString wide = QString::fromUtf8("\xf0\x90\x90\x80");
    for (qsizetype before = 250; before < 260; ++before) {
        const QString text = QString(before, u'a') + wide + QString(before, u'b');
        EXPECT_EQ(SearchText::folded(text), text.toLower().toUtf8()) << before;
    }
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

TEST(SearchText, findsInRecordsThatShareTextsWhatThePlainSearchFinds)
{
    std::mt19937 random{ 20240229 };
    for (int round = 0; round < 300; ++round) {
        std::vector<std::vector<std::string>> fields;
        RecordWriter writer(nullptr);
        for (std::size_t count = random() % 60; count > 0; --count)
            writer.add(textsOf(fields.emplace_back(randomFields(random))));
        writer.finish();
        const SearchText text(writer.takeOrigins());
        for (int number = 0; number < 40; ++number) {
            const std::string query = randomWord(random, 1 + random() % 3);
            const QByteArray folded = SearchText::folded(QString::fromStdString(query));
            ASSERT_EQ(text.find(viewOf(folded)), plainlyFound(fields, query)) << round << ' ' << query;
        }
    }
}

TEST(SearchText, findsInEveryBlockOfAnIndex)
{
    RecordWriter writer(nullptr);
    std::vector<std::vector<std::string>> fields;
    for (int number = 0; number < 5000; ++number)
        writer.add(textsOf(fields.emplace_back(std::vector<std::string>{ "Team " + std::to_string(number / 70),
            number % 3 == 0 ? "The same" : "Not " + std::to_string(number), std::to_string(number), "" })));
    writer.finish();
    const SearchText text(writer.takeOrigins());
    for (const char* query : { "team", "team 7", "same", "not 1", "99", "4999", "0", "none" })
        EXPECT_EQ(text.find(query), plainlyFound(fields, query)) << query;
}
