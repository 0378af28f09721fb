#include "ui/kit/text/WritingDirection.h"
#include "ui/kit/view/Label.h"

#include <gtest/gtest.h>

namespace {

const QString LeftToRightMark(QChar(0x200e));
const QString RightToLeftIsolate(QChar(0x2067));
const QString FirstStrongIsolate(QChar(0x2068));
const QString PopIsolate(QChar(0x2069));

QString isolated(const QString& text)
{
    return FirstStrongIsolate + text + PopIsolate;
}

QString isolatedName(const QString& text)
{
    return RightToLeftIsolate + text + PopIsolate;
}

} // namespace

TEST(WritingDirection, leavesWhatRunsFromLeftToRightAsItIs)
{
    const QString text = QStringLiteral("Edda Brook  \u2022  2.4.1, 日历, 한글, \U0001f600");
    EXPECT_EQ(kit::WritingDirection::shown(text), text);
    EXPECT_EQ(kit::WritingDirection::shown(text).constData(), text.constData());
    EXPECT_EQ(kit::WritingDirection::shownSentence(text).constData(), text.constData());
}

TEST(WritingDirection, tellsNullFromEmpty)
{
    EXPECT_TRUE(kit::WritingDirection::shown(QString()).isNull());
    EXPECT_FALSE(kit::WritingDirection::shown(QStringLiteral("")).isNull());
}

TEST(WritingDirection, leavesARightToLeftNameToItsOwnDirection)
{
    const QString name = QStringLiteral("יומן לילה 2");
    EXPECT_EQ(kit::WritingDirection::shown(name), name);
}

TEST(WritingDirection, leavesOutWhatForcesADirection)
{
    for (const char16_t control : u"\u202a\u202b\u202c\u202d\u202e\u2066\u2067\u2068\u2069") {
        if (!control)
            continue;
        const QString text = QStringLiteral("ab") + QChar(control) + QStringLiteral("cd");
        EXPECT_EQ(kit::WritingDirection::shown(text), QStringLiteral("abcd"));
        EXPECT_EQ(kit::WritingDirection::shownSentence(text), LeftToRightMark + QStringLiteral("abcd"));
    }
}

TEST(WritingDirection, keepsMarksWhichForceNothing)
{
    const QString text = QStringLiteral("\u05d0\u200e+\u200f");
    EXPECT_EQ(kit::WritingDirection::shown(text), text);
}

TEST(WritingDirection, keepsTheOrderOfWhatABulletDivides)
{
    EXPECT_EQ(kit::WritingDirection::shown(QStringLiteral("ליאור  \u2022  2.0")),
        isolated(QStringLiteral("ליאור")) + QStringLiteral("  \u2022  ") + isolated(QStringLiteral("2.0")));
    EXPECT_EQ(kit::WritingDirection::shown(QStringLiteral("Edda \u202eBrook  \u2022  2.0")),
        isolated(QStringLiteral("Edda Brook")) + QStringLiteral("  \u2022  ") + isolated(QStringLiteral("2.0")));
}

TEST(WritingDirection, knowsThatNothingStandsBesideTheBullet)
{
    EXPECT_EQ(kit::WritingDirection::shown(QStringLiteral("ליאור  \u2022  ")),
        isolated(QStringLiteral("ליאור")) + QStringLiteral("  \u2022  "));
    EXPECT_EQ(kit::WritingDirection::shown(QStringLiteral("\u2022\u202e")), QStringLiteral("\u2022"));
}

TEST(WritingDirection, makesASentenceBeginAtTheLeft)
{
    EXPECT_EQ(kit::WritingDirection::shownSentence(QStringLiteral("יומן לילה 1.3 is installed.")),
        LeftToRightMark + isolatedName(QStringLiteral("יומן לילה")) + QStringLiteral(" 1.3 is installed."));
}

TEST(WritingDirection, keepsANameTogetherWithWhatStandsInside)
{
    EXPECT_EQ(kit::WritingDirection::shownSentence(QStringLiteral("Was אבג 2, דהו removed?")),
        LeftToRightMark + QStringLiteral("Was ") + isolatedName(QStringLiteral("אבג 2, דהו"))
            + QStringLiteral(" removed?"));
}

TEST(WritingDirection, keepsTwoNamesApartWhereAWordStandsBetweenThem)
{
    EXPECT_EQ(kit::WritingDirection::shownSentence(QStringLiteral("אבג needs דהו 2.")),
        LeftToRightMark + isolatedName(QStringLiteral("אבג")) + QStringLiteral(" needs ")
            + isolatedName(QStringLiteral("דהו")) + QStringLiteral(" 2."));
}

TEST(WritingDirection, keepsArabicDigitsTogetherToo)
{
    EXPECT_EQ(kit::WritingDirection::shownSentence(QStringLiteral("Was \u0663.\u0664 removed?")),
        LeftToRightMark + QStringLiteral("Was ") + isolatedName(QStringLiteral("\u0663.\u0664"))
            + QStringLiteral(" removed?"));
}

TEST(WritingDirection, keepsLettersBeyondTheFirstPlaneWhole)
{
    const QString text = QStringLiteral("\U0001e900 \u05d0 \U0001f600") + QChar(0xd83a);
    EXPECT_EQ(kit::WritingDirection::shown(text), text);
    EXPECT_EQ(kit::WritingDirection::shownSentence(text),
        LeftToRightMark + QStringLiteral("\U0001e900 ") + isolatedName(QStringLiteral("\u05d0"))
            + QStringLiteral(" \U0001f600") + QChar(0xd83a));
}

TEST(WritingDirection, isWhatALabelShowsAndNotWhatItHolds)
{
    kit::Label label;
    label.setText(QStringLiteral("Reversed \u202eby Force"));
    EXPECT_EQ(label.text(), QStringLiteral("Reversed \u202eby Force"));
    EXPECT_EQ(label.shownText(), QStringLiteral("Reversed by Force"));
}
