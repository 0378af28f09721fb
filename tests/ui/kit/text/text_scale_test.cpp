#include "ui/kit/navigation/BarAppearance.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/table/TableViewController.h"
#include "ui/kit/text/Font.h"
#include "ui/kit/text/TextScale.h"
#include "ui/kit/view/Button.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double Largest = 2;

class TextScaleTest : public testing::Test
{
protected:
    ~TextScaleTest() override { kit::TextScale::set(1); }
};

double drawnHeight(const QFont& font)
{
    return QFontMetricsF(kit::Font::enlarged(font)).height();
}

// A section of one row of the table's own height and one that its screen has measured.
class TwoRows : public kit::TableViewController
{
public:
    int numberOfSections() const override { return 1; }
    int numberOfRowsInSection(int /*section*/) const override { return 2; }
    double heightForHeaderInSection(int /*section*/) const override { return 25; }
    bool rowsDifferInHeight() const override { return true; }
    double heightForRowAtIndexPath(const kit::IndexPath& indexPath) const override
    {
        return indexPath.row == 0 ? -1 : 71;
    }
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& /*indexPath*/) override
    {
        return tableView()->dequeueCell<kit::TableViewCell>(
            QStringLiteral("Cell"), kit::TableViewCell::Style::Subtitle);
    }
};

} // namespace

TEST_F(TextScaleTest, changesNothingUntilItIsSet)
{
    EXPECT_EQ(kit::TextScale::value(), 1);
    EXPECT_EQ(kit::TextScale::grown(68.37), 68.37);
    for (int size = 8; size <= 40; ++size)
        EXPECT_EQ(kit::TextScale::fontSize(size), size);
    EXPECT_FALSE(kit::Label().isEnlarged());
}

TEST_F(TextScaleTest, staysBetweenOneAndTwo)
{
    kit::TextScale::set(0.5);
    EXPECT_EQ(kit::TextScale::value(), 1);
    kit::TextScale::set(3);
    EXPECT_EQ(kit::TextScale::value(), 2);
    kit::TextScale::set(std::numeric_limits<double>::infinity());
    EXPECT_EQ(kit::TextScale::value(), 2);
    kit::TextScale::set(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(kit::TextScale::value(), 1);
}

TEST_F(TextScaleTest, enlargesFontsWhereTheyAreDrawnAndNotWhereTheyAreAskedFor)
{
    for (int percent = 100; percent <= 200; percent += 5) {
        const double scale = percent / 100.0;
        kit::TextScale::set(scale);
        for (int size = 8; size <= 40; ++size) {
            const QFont font = kit::Font::boldSystemFont(size);
            EXPECT_EQ(font.pixelSize(), size);
            EXPECT_NEAR(kit::Font::enlarged(font).pixelSize(), size * scale, 0.51);
        }
    }
}

TEST_F(TextScaleTest, enlargesTheTextsThatWereThereBefore)
{
    kit::Label label({ 0, 0, 100, 44 });
    label.setFont(kit::Font::systemFont(15));
    label.setText(QStringLiteral("Vesk"));
    const double usual = label.naturalWidth();
    kit::TextScale::set(Largest);
    EXPECT_EQ(label.shownFont().pixelSize(), 30);
    EXPECT_NEAR(label.naturalWidth(), usual * Largest, 2);
    EXPECT_EQ(label.smallestFontSize(), 20);
    kit::TextScale::set(1);
    EXPECT_EQ(label.shownFont().pixelSize(), 15);
}

TEST_F(TextScaleTest, givesRowsRoomForTheirTwoLines)
{
    for (int percent = 100; percent <= 200; percent += 5) {
        kit::TextScale::set(percent / 100.0);
        const double lines = drawnHeight(kit::Font::boldSystemFont(15)) + drawnHeight(kit::Font::systemFont(12));
        EXPECT_LE(lines + 2, kit::TextScale::grown(60));
        EXPECT_LE(drawnHeight(kit::Font::boldSystemFont(12)), kit::TextScale::grown(25));
        EXPECT_LE(drawnHeight(kit::Font::boldSystemFont(16)), kit::TextScale::grown(44));
        EXPECT_EQ(kit::TextScale::grown(60), std::round(kit::TextScale::grown(60)));
    }
}

TEST_F(TextScaleTest, holdsTheTextsOfBarsToWhatTheyHaveRoomFor)
{
    kit::TextScale::set(Largest);
    kit::NavigationBar bar;
    kit::BarAppearance appearance;
    appearance.titleTextAttributes = { kit::Color::white(), kit::Font::boldSystemFont(18) };
    bar.setStandardAppearance(appearance);
    EXPECT_GT(bar.titleFont().pixelSize(), 18);
    EXPECT_LT(QFontMetricsF(bar.titleFont()).height(), kit::NavigationBar::Height);
    EXPECT_EQ(bar.standardTitleSize(), 18);
}

TEST_F(TextScaleTest, growsTheTextsOfBarsByAQuarterAtMost)
{
    kit::TextScale::set(1.2);
    EXPECT_EQ(kit::TextScale::barFontSize(20), 24);
    for (const double scale : { 1.25, 1.3, Largest }) {
        kit::TextScale::set(scale);
        EXPECT_EQ(kit::TextScale::barFontSize(20), 25);
    }
}

TEST_F(TextScaleTest, growsHeadersAndRowsButNotTheRowsThatAScreenHasMeasured)
{
    kit::TextScale::set(Largest);
    TwoRows screen;
    screen.tableView()->setRowHeight(60);
    screen.layOut({ 0, 0, 390, 600 });
    const kit::TableView& table = *screen.tableView();
    EXPECT_EQ(table.rectForRow({ 0, 0 }).top(), 40);
    EXPECT_EQ(table.rectForRow({ 0, 0 }).height(), 96);
    EXPECT_EQ(table.rectForRow({ 0, 1 }).height(), 71);
}

TEST_F(TextScaleTest, keepsTheLinesOfACellInItsRow)
{
    kit::TextScale::set(Largest);
    kit::TableViewCell cell(kit::TableViewCell::Style::Subtitle, QString());
    cell.textLabel()->setFont(kit::Font::boldSystemFont(15));
    cell.detailTextLabel()->setText(QStringLiteral("Detail"));
    cell.setFrame({ 0, 0, 390, kit::TextScale::grown(60) });
    EXPECT_GE(cell.textLabel()->frame().top(), 0);
    EXPECT_GE(cell.detailTextLabel()->frame().top(), cell.textLabel()->frame().bottom());
    EXPECT_LE(cell.detailTextLabel()->frame().bottom(), cell.height());
}

TEST_F(TextScaleTest, shrinksATextByAThirdAtMostWhereItsFrameIsTallEnough)
{
    kit::TextScale::set(Largest);
    kit::Label label({ 0, 0, 100, 44 });
    label.setFont(kit::Font::boldSystemFont(15));
    EXPECT_EQ(label.smallestFontSize(), 20);
    label.setNumberOfLines(0);
    EXPECT_EQ(label.smallestFontSize(), 20);
}

TEST_F(TextScaleTest, shrinksATextToItsUsualSizeInAFrameThatIsTooLow)
{
    kit::TextScale::set(Largest);
    kit::Label label({ 0, 0, 100, 24 });
    label.setFont(kit::Font::boldSystemFont(17));
    EXPECT_EQ(label.smallestFontSize(), 17);
    label.setFrame({ 0, 0, 100, 36 });
    EXPECT_EQ(label.smallestFontSize(), 23);
    label.setNumberOfLines(2);
    EXPECT_EQ(label.smallestFontSize(), 17);
}

TEST_F(TextScaleTest, keepsATextEnlargedInAFrameThatIsJustHighEnough)
{
    kit::TextScale::set(Largest);
    kit::Label label({ 0, 0, 100, 100 });
    label.setFont(kit::Font::boldSystemFont(17));
    QFont least = label.shownFont();
    least.setPixelSize(23);
    const double needed = QFontMetricsF(least).height();
    label.setFrame({ 0, 0, 100, needed });
    EXPECT_EQ(label.smallestFontSize(), 23);
    label.setFrame({ 0, 0, 100, needed - 0.5 });
    EXPECT_EQ(label.smallestFontSize(), 17);
}

TEST_F(TextScaleTest, shrinksATextThatIsLittleEnlargedToItsUsualSize)
{
    kit::TextScale::set(1.25);
    kit::Label label({ 0, 0, 100, 44 });
    label.setFont(kit::Font::systemFont(12));
    EXPECT_EQ(label.smallestFontSize(), 12);
}

TEST_F(TextScaleTest, tellsThatTheSmallestSizeHasChangedWithTheFrame)
{
    kit::TextScale::set(Largest);
    kit::Label label({ 0, 0, 100, 24 });
    int changes = 0;
    QObject::connect(&label, &kit::Label::labelChanged, [&] { ++changes; });
    label.setFrame({ 0, 0, 100, 44 });
    EXPECT_EQ(changes, 1);
}

TEST_F(TextScaleTest, growsButtonsWithTheirTitles)
{
    kit::Button usual;
    usual.setTitle(QStringLiteral("Install"));
    const QSizeF usualSize = usual.naturalSize();
    kit::TextScale::set(Largest);
    kit::Button large;
    large.setTitle(QStringLiteral("Install"));
    EXPECT_NEAR(large.naturalSize().width(), usualSize.width() * Largest, 2);
    EXPECT_NEAR(large.naturalSize().height(), usualSize.height() * Largest, 2);
}
