#include "BarAppearance.h"
#include "Button.h"
#include "Font.h"
#include "NavigationController.h"
#include "TableViewController.h"
#include "TextScale.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double Largest = 2;

class TextScaleTest : public testing::Test
{
protected:
    ~TextScaleTest() override { TextScale::set(1); }
};

// A section of one row of the table's own height and one that its screen has measured.
class TwoRows : public TableViewController
{
public:
    int numberOfSections() const override { return 1; }
    int numberOfRowsInSection(int /*section*/) const override { return 2; }
    double heightForHeaderInSection(int /*section*/) const override { return 25; }
    double heightForRowAtIndexPath(const IndexPath& indexPath) const override { return indexPath.row == 0 ? -1 : 71; }
    TableViewCell* cellForRowAtIndexPath(const IndexPath& /*indexPath*/) override
    {
        return tableView()->dequeueCell<TableViewCell>(QStringLiteral("Cell"), TableViewCell::Style::Subtitle);
    }
};

} // namespace

TEST_F(TextScaleTest, changesNothingUntilItIsSet)
{
    EXPECT_EQ(TextScale::value(), 1);
    EXPECT_EQ(TextScale::grown(68.37), 68.37);
    for (int size = 8; size <= 40; ++size)
        EXPECT_EQ(TextScale::fontSize(size), size);
    EXPECT_FALSE(Label().isEnlarged());
}

TEST_F(TextScaleTest, staysBetweenOneAndTwo)
{
    TextScale::set(0.5);
    EXPECT_EQ(TextScale::value(), 1);
    TextScale::set(3);
    EXPECT_EQ(TextScale::value(), 2);
    TextScale::set(std::numeric_limits<double>::infinity());
    EXPECT_EQ(TextScale::value(), 2);
    TextScale::set(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(TextScale::value(), 1);
}

TEST_F(TextScaleTest, enlargesFontsThatRememberTheSizeAskedFor)
{
    for (int percent = 100; percent <= 200; percent += 5) {
        const double scale = percent / 100.0;
        TextScale::set(scale);
        for (int size = 8; size <= 40; ++size) {
            const QFont font = Font::boldSystemFont(size);
            EXPECT_NEAR(font.pixelSize(), size * scale, 0.51);
            EXPECT_EQ(Font::standardSize(font), size);
        }
    }
}

TEST_F(TextScaleTest, givesRowsRoomForTheirTwoLines)
{
    for (int percent = 100; percent <= 200; percent += 5) {
        TextScale::set(percent / 100.0);
        const double lines
            = QFontMetricsF(Font::boldSystemFont(15)).height() + QFontMetricsF(Font::systemFont(12)).height();
        EXPECT_LE(lines + 2, TextScale::grown(60));
        EXPECT_LE(QFontMetricsF(Font::boldSystemFont(12)).height(), TextScale::grown(25));
        EXPECT_LE(QFontMetricsF(Font::boldSystemFont(16)).height(), TextScale::grown(44));
        EXPECT_EQ(TextScale::grown(60), std::round(TextScale::grown(60)));
    }
}

TEST_F(TextScaleTest, holdsTheTextsOfBarsToWhatTheyHaveRoomFor)
{
    TextScale::set(Largest);
    NavigationBar bar;
    BarAppearance appearance;
    appearance.titleTextAttributes = { Color::white(), Font::boldSystemFont(18) };
    bar.setStandardAppearance(appearance);
    EXPECT_GT(bar.titleFont().pixelSize(), 18);
    EXPECT_LT(QFontMetricsF(bar.titleFont()).height(), NavigationBar::Height);
    EXPECT_EQ(bar.standardTitleSize(), 18);
}

TEST_F(TextScaleTest, growsHeadersAndRowsButNotTheRowsThatAScreenHasMeasured)
{
    TextScale::set(Largest);
    TwoRows screen;
    screen.tableView()->setRowHeight(60);
    screen.layOut({ 0, 0, 390, 600 });
    const TableView& table = *screen.tableView();
    EXPECT_EQ(table.rectForRow({ 0, 0 }).top(), 40);
    EXPECT_EQ(table.rectForRow({ 0, 0 }).height(), 96);
    EXPECT_EQ(table.rectForRow({ 0, 1 }).height(), 71);
}

TEST_F(TextScaleTest, keepsTheLinesOfACellInItsRow)
{
    TextScale::set(Largest);
    TableViewCell cell(TableViewCell::Style::Subtitle, QString());
    cell.textLabel()->setFont(Font::boldSystemFont(15));
    cell.detailTextLabel()->setText(QStringLiteral("Detail"));
    cell.setFrame({ 0, 0, 390, TextScale::grown(60) });
    EXPECT_GE(cell.textLabel()->frame().top(), 0);
    EXPECT_GE(cell.detailTextLabel()->frame().top(), cell.textLabel()->frame().bottom());
    EXPECT_LE(cell.detailTextLabel()->frame().bottom(), cell.height());
}

TEST_F(TextScaleTest, shrinksATextByAThirdAtMostWhereItsFrameIsTallEnough)
{
    TextScale::set(Largest);
    Label label({ 0, 0, 100, 44 });
    label.setFont(Font::boldSystemFont(15));
    EXPECT_EQ(label.smallestFontSize(), 20);
    label.setNumberOfLines(0);
    EXPECT_EQ(label.smallestFontSize(), 20);
}

TEST_F(TextScaleTest, shrinksATextToItsUsualSizeInAFrameThatIsTooLow)
{
    TextScale::set(Largest);
    Label label({ 0, 0, 100, 24 });
    label.setFont(Font::boldSystemFont(17));
    EXPECT_EQ(label.smallestFontSize(), 17);
    label.setFrame({ 0, 0, 100, 36 });
    EXPECT_EQ(label.smallestFontSize(), 23);
    label.setNumberOfLines(2);
    EXPECT_EQ(label.smallestFontSize(), 17);
}

TEST_F(TextScaleTest, shrinksATextThatIsLittleEnlargedToItsUsualSize)
{
    TextScale::set(1.25);
    Label label({ 0, 0, 100, 44 });
    label.setFont(Font::systemFont(12));
    EXPECT_EQ(label.smallestFontSize(), 12);
}

TEST_F(TextScaleTest, tellsThatTheSmallestSizeHasChangedWithTheFrame)
{
    TextScale::set(Largest);
    Label label({ 0, 0, 100, 24 });
    int changes = 0;
    QObject::connect(&label, &Label::labelChanged, [&] { ++changes; });
    label.setFrame({ 0, 0, 100, 44 });
    EXPECT_EQ(changes, 1);
}

TEST_F(TextScaleTest, growsButtonsWithTheirTitles)
{
    Button usual;
    usual.setTitle(QStringLiteral("Install"));
    TextScale::set(Largest);
    Button large;
    large.setTitle(QStringLiteral("Install"));
    EXPECT_NEAR(large.naturalSize().width(), usual.naturalSize().width() * Largest, 2);
    EXPECT_NEAR(large.naturalSize().height(), usual.naturalSize().height() * Largest, 2);
}
