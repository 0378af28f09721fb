#include "ui/kit/table/TableViewCell.h"

#include "ui/kit/text/Font.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QEvent>
#include <QFontMetricsF>
#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <map>
#include <utility>

namespace {

using Style = kit::TableViewCell::Style;
using AccessoryType = kit::TableViewCell::AccessoryType;

struct Cell : kit::TableViewCell
{
    explicit Cell(Style style)
        : kit::TableViewCell(style, QStringLiteral("Cell"))
    {
        setFrame({ 0, 0, 320, 60 });
    }
};

double rightOf(const kit::View* view)
{
    return view->frame().right();
}

kit::Image picture(const QSize& size, double scale = 1)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return kit::Image::fromData(bytes, scale);
}

kit::Image picture(int side)
{
    return picture({ side, side });
}

} // namespace

TEST(TableViewCell, ofTheDefaultStyleHasOneTextAsHighAsTheRow)
{
    Cell cell(Style::Default);
    EXPECT_EQ(cell.detailTextLabel(), nullptr);
    EXPECT_EQ(cell.textLabel()->frame(), QRectF(16, 0, 288, 60));
    EXPECT_EQ(cell.contentView()->frame(), QRectF(0, 0, 320, 60));
}

TEST(TableViewCell, holdsItsImageAndItsTextsLeftOfItsAccessory)
{
    Cell cell(Style::Subtitle);
    EXPECT_EQ(cell.contentView()->superview(), &cell);
    for (const kit::View* part :
        std::initializer_list<kit::View*>{ cell.imageView(), cell.textLabel(), cell.detailTextLabel() })
        EXPECT_EQ(part->superview(), cell.contentView());
    auto* const badge = new kit::View;
    cell.setAccessoryView(badge);
    EXPECT_EQ(badge->superview(), &cell);
}

TEST(TableViewCell, isReadAsAWholeAndNotByItsTexts)
{
    Cell cell(Style::Subtitle);
    EXPECT_TRUE(cell.isAccessibilityElement());
    EXPECT_FALSE(cell.textLabel()->isAccessibilityElement());
    EXPECT_FALSE(cell.detailTextLabel()->isAccessibilityElement());
    cell.setAccessoryType(AccessoryType::DisclosureIndicator);
    EXPECT_FALSE(cell.shownAccessory()->isAccessibilityElement());
    EXPECT_TRUE(cell.shownAccessory()->accessibilityLabel().isEmpty());
    cell.setAccessoryType(AccessoryType::Checkmark);
    EXPECT_FALSE(cell.shownAccessory()->isAccessibilityElement());
    EXPECT_EQ(cell.shownAccessory()->accessibilityLabel(), QStringLiteral("checked"));
}

TEST(TableViewCell, writesADetailBelowTheTextSmallerThanOneAtTheRight)
{
    const Cell subtitle(Style::Subtitle);
    EXPECT_EQ(subtitle.detailTextLabel()->font(), kit::Font::systemFont(12));
    EXPECT_EQ(subtitle.detailTextLabel()->textAlignment(), Qt::AlignLeft);
    const Cell value(Style::Value1);
    EXPECT_EQ(value.detailTextLabel()->font(), kit::Font::systemFont(17));
    EXPECT_EQ(value.textLabel()->font(), kit::Font::systemFont(17));
}

TEST(TableViewCell, ofTheSubtitleStylePutsTheDetailBelowTheTextAndBothInTheMiddle)
{
    Cell cell(Style::Subtitle);
    cell.textLabel()->setText(QStringLiteral("Name"));
    cell.detailTextLabel()->setText(QStringLiteral("Detail"));
    cell.setNeedsLayout();
    const QRectF text = cell.textLabel()->frame();
    const QRectF detail = cell.detailTextLabel()->frame();
    EXPECT_EQ(text.left(), 16);
    EXPECT_EQ(detail.left(), 16);
    EXPECT_EQ(detail.top(), text.bottom() + 2);
    EXPECT_NEAR(text.top(), 60 - detail.bottom(), 1);
}

TEST(TableViewCell, ofTheSubtitleStyleCentersTheTextWhileThereIsNoDetail)
{
    Cell cell(Style::Subtitle);
    cell.textLabel()->setText(QStringLiteral("Name"));
    cell.setNeedsLayout();
    const double textHeight = std::ceil(QFontMetricsF(cell.textLabel()->shownFont()).height());
    EXPECT_EQ(cell.textLabel()->frame(), QRectF(16, std::floor((60 - textHeight) / 2), 288, textHeight));
    EXPECT_EQ(cell.detailTextLabel()->height(), 0);
    EXPECT_EQ(cell.detailTextLabel()->frame().top(), cell.textLabel()->frame().bottom());
}

TEST(TableViewCell, ofTheValue1StylePutsTheDetailAtTheRight)
{
    Cell cell(Style::Value1);
    cell.textLabel()->setText(QStringLiteral("Tweaks"));
    cell.detailTextLabel()->setText(QStringLiteral("42"));
    cell.setNeedsLayout();
    EXPECT_EQ(cell.detailTextLabel()->textAlignment(), Qt::AlignRight);
    EXPECT_EQ(rightOf(cell.detailTextLabel()), 304);
    EXPECT_EQ(cell.detailTextLabel()->width(), std::ceil(cell.detailTextLabel()->naturalWidth()) + 1)
        << "room to round";
    EXPECT_EQ(rightOf(cell.textLabel()), cell.detailTextLabel()->frame().left() - 8);
}

TEST(TableViewCell, ofTheValue1StyleLeavesTheTextTwoFifthsWhenBothAreLong)
{
    Cell cell(Style::Value1);
    cell.textLabel()->setText(QString(500, u'W'));
    cell.detailTextLabel()->setText(QString(500, u'W'));
    cell.setNeedsLayout();
    EXPECT_NEAR(cell.detailTextLabel()->width(), 288 * 0.6, 0.01);
    EXPECT_NEAR(cell.textLabel()->width(), 288 * 0.4 - 8, 0.01);
    EXPECT_NEAR(rightOf(cell.detailTextLabel()), 304, 0.01);
}

TEST(TableViewCell, ofTheValue1StyleGivesALongDetailAllThatAShortTextLeaves)
{
    Cell cell(Style::Value1);
    cell.textLabel()->setText(QStringLiteral("Size"));
    cell.detailTextLabel()->setText(QString(500, u'W'));
    cell.setNeedsLayout();
    const double textNeeds = std::ceil(cell.textLabel()->naturalWidth());
    EXPECT_EQ(cell.textLabel()->frame(), QRectF(16, 0, textNeeds, 60));
    EXPECT_EQ(cell.detailTextLabel()->frame(), QRectF(16 + textNeeds + 8, 0, 288 - textNeeds - 8, 60));
}

TEST(TableViewCell, ofTheValue1StyleGivesTheTextAllWhileThereIsNoDetail)
{
    Cell cell(Style::Value1);
    cell.textLabel()->setText(QStringLiteral("Size"));
    cell.setNeedsLayout();
    EXPECT_EQ(cell.textLabel()->frame(), QRectF(16, 0, 288, 60));
    EXPECT_EQ(cell.detailTextLabel()->width(), 0);
}

TEST(TableViewCell, showsTheAccessoryOfItsType)
{
    Cell cell(Style::Default);
    EXPECT_EQ(cell.shownAccessory(), nullptr);
    cell.setAccessoryType(AccessoryType::DisclosureIndicator);
    const kit::View* arrow = cell.shownAccessory();
    ASSERT_NE(arrow, nullptr);
    EXPECT_EQ(arrow->frame().size(), QSizeF(24, 24));
    EXPECT_EQ(arrow->frame().top(), 18);
    EXPECT_EQ(rightOf(arrow), 320 - 4);
    EXPECT_EQ(cell.contentView()->width(), arrow->frame().left());
    cell.setAccessoryType(AccessoryType::Checkmark);
    EXPECT_EQ(rightOf(cell.shownAccessory()), 320 - 8);
    EXPECT_EQ(cell.contentView()->width(), cell.shownAccessory()->frame().left());
    cell.setAccessoryType(AccessoryType::None);
    EXPECT_EQ(cell.shownAccessory(), nullptr);
    EXPECT_EQ(cell.contentView()->width(), 320);
}

TEST(TableViewCell, drawsAnArrowForWhatOpensAndATickForWhatIsChosen)
{
    Cell cell(Style::Default);
    const auto glyph = [&] { return static_cast<kit::ImageView*>(cell.shownAccessory())->image(); };
    cell.setAccessoryType(AccessoryType::DisclosureIndicator);
    EXPECT_EQ(glyph(), kit::Image::glyphNamed(QStringLiteral("chevron.right")));
    cell.setAccessoryType(AccessoryType::Checkmark);
    EXPECT_EQ(glyph(), kit::Image::glyphNamed(QStringLiteral("checkmark")));
}

TEST(TableViewCell, keepsTheAccessoryOfATypeThatIsSetAgain)
{
    Cell cell(Style::Default);
    cell.setAccessoryType(AccessoryType::DisclosureIndicator);
    const kit::View* const arrow = cell.shownAccessory();
    cell.setAccessoryType(AccessoryType::DisclosureIndicator);
    EXPECT_EQ(cell.shownAccessory(), arrow);
}

// A row's height comes from sums and may fall short of a whole number by a hair.
TEST(TableViewCell, putsItsAccessoryOnAWholePointNoLowerThanTheMiddle)
{
    Cell cell(Style::Default);
    cell.setAccessoryType(AccessoryType::DisclosureIndicator);
    const std::map<double, double> topByHeight{ { 60, 18 }, { 59.999, 18 }, { 59.8, 17 }, { 59, 17 }, { 58, 17 } };
    for (const auto& [height, top] : topByHeight) {
        cell.setFrame({ 0, 0, 320, height });
        EXPECT_EQ(cell.shownAccessory()->frame().top(), top) << height;
    }
}

TEST(TableViewCell, tintsTheCheckmarkButNotTheDisclosureArrow)
{
    Cell cell(Style::Default);
    cell.setTintColor(kit::Color{ 1, 0, 0, 1, {} });
    cell.setAccessoryType(AccessoryType::Checkmark);
    EXPECT_EQ(static_cast<kit::ImageView*>(cell.shownAccessory())->tintColor(), (kit::Color{ 1, 0, 0, 1, {} }));
    cell.setTintColor(kit::Color{ 0, 1, 0, 1, {} });
    EXPECT_EQ(static_cast<kit::ImageView*>(cell.shownAccessory())->tintColor(), (kit::Color{ 0, 1, 0, 1, {} }));
    cell.setAccessoryType(AccessoryType::DisclosureIndicator);
    EXPECT_EQ(static_cast<kit::ImageView*>(cell.shownAccessory())->tintColor(), (kit::Color{ 0.5, 0.56, 0.63, 1, {} }));
}

TEST(TableViewCell, showsItsAccessoryViewInPlaceOfTheType)
{
    Cell cell(Style::Default);
    cell.setAccessoryType(AccessoryType::DisclosureIndicator);
    auto* badge = new kit::View({ 0, 0, 70, 30 });
    cell.setAccessoryView(badge);
    EXPECT_EQ(cell.shownAccessory(), badge);
    EXPECT_EQ(badge->frame(), QRectF(320 - 12 - 70, 15, 70, 30));
    EXPECT_EQ(cell.contentView()->width(), 320 - 12 - 70 - 8);
    cell.setAccessoryView(nullptr);
    EXPECT_NE(cell.shownAccessory(), nullptr);
    EXPECT_EQ(cell.shownAccessory()->width(), 24);
}

TEST(TableViewCell, deletesTheViewsItIsRidOfAfterTheirActionIsDone)
{
    Cell cell(Style::Default);
    const QPointer<kit::View> badge(new kit::View({ 0, 0, 70, 30 }));
    const QPointer<kit::View> background(new kit::View);
    cell.setAccessoryView(badge);
    cell.setBackgroundView(background);
    cell.setAccessoryView(new kit::View({ 0, 0, 10, 10 }));
    cell.setBackgroundView(nullptr);
    EXPECT_FALSE(badge.isNull());
    EXPECT_FALSE(cell.subviews().contains(badge));
    EXPECT_FALSE(cell.subviews().contains(background));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(badge.isNull());
    EXPECT_TRUE(background.isNull());
    EXPECT_EQ(cell.backgroundView(), nullptr);
}

TEST(TableViewCell, keepsAViewThatIsSetAgain)
{
    Cell cell(Style::Default);
    const QPointer<kit::View> badge(new kit::View({ 0, 0, 70, 30 }));
    cell.setAccessoryView(badge);
    cell.setAccessoryView(badge);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(badge.isNull());
}

TEST(TableViewCell, stretchesItsBackgroundsOverTheWholeRow)
{
    Cell cell(Style::Subtitle);
    cell.setBackgroundView(new kit::View);
    cell.setSelectedBackgroundView(new kit::View);
    EXPECT_EQ(cell.backgroundView()->frame(), QRectF(0, 0, 320, 60));
    cell.setFrame({ 0, 120, 500, 80 });
    EXPECT_EQ(cell.backgroundView()->frame(), QRectF(0, 0, 500, 80));
    EXPECT_EQ(cell.selectedBackgroundView()->frame(), QRectF(0, 0, 500, 80));
}

TEST(TableViewCell, makesRoomForItsImage)
{
    Cell cell(Style::Default);
    cell.imageView()->setImage(picture(24));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 18, 24, 24));
    EXPECT_EQ(cell.textLabel()->frame().left(), 16 + 24 + 12);
    cell.imageView()->setImage({});
    EXPECT_EQ(cell.textLabel()->frame().left(), 16);
}

TEST(TableViewCell, keepsALargeImageWithinTheRow)
{
    Cell cell(Style::Default);
    cell.imageView()->setImage(picture(400));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 4, 52, 52));
    EXPECT_EQ(cell.textLabel()->frame().left(), 16 + 52 + 12);
}

TEST(TableViewCell, usesAHighRowForALargeImage)
{
    Cell cell(Style::Subtitle);
    cell.setFrame({ 0, 0, 320, 82 });
    cell.imageView()->setImage(picture(120));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 4, 74, 74));
    EXPECT_EQ(cell.textLabel()->frame().left(), 16 + 74 + 12);
}

// The corners of its view are those of the picture then, not those of an empty box around it.
TEST(TableViewCell, keepsTheProportionsOfALargeImage)
{
    Cell cell(Style::Subtitle);
    cell.imageView()->setImage(picture({ 208, 104 }));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 17, 52, 26));
    cell.imageView()->setImage(picture({ 104, 208 }));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 4, 26, 52));
    EXPECT_EQ(cell.textLabel()->frame().left(), 16 + 26 + 12);
    cell.imageView()->setImage(picture({ 104, 26 }));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 23, 52, 13));
    cell.imageView()->setImage(picture({ 26, 104 }));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 4, 13, 52));
}

TEST(TableViewCell, leavesASmallImageAsLargeAsItIs)
{
    Cell cell(Style::Subtitle);
    cell.imageView()->setImage(picture({ 42, 20 }));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 20, 42, 20));
    cell.imageView()->setImage(picture({ 104, 51 }, 2));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 17, 52, 25.5)) << "as wide as it may be";
    cell.imageView()->setImage(picture({ 51, 104 }, 2));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 4, 25.5, 52)) << "as high as it may be";
}

TEST(TableViewCell, hasNoNegativeWidthsInARowThatIsTooNarrow)
{
    for (const Style style : { Style::Default, Style::Subtitle, Style::Value1 }) {
        Cell cell(style);
        cell.textLabel()->setText(QStringLiteral("Name"));
        if (cell.detailTextLabel())
            cell.detailTextLabel()->setText(QStringLiteral("Detail"));
        cell.setAccessoryView(new kit::View({ 0, 0, 70, 30 }));
        cell.imageView()->setImage(picture(24));
        cell.setFrame({ 0, 0, 20, 10 });
        EXPECT_EQ(cell.textLabel()->width(), 0);
        EXPECT_EQ(cell.contentView()->width(), 0);
        EXPECT_GE(cell.imageView()->height(), 0);
        if (cell.detailTextLabel()) {
            EXPECT_EQ(cell.detailTextLabel()->width(), 0);
        }
    }
}

TEST(TableViewCell, laysOutTextsOfManyMegabytesWithinTheRow)
{
    const QString hostile = QString(4'000'000, u'M') + QChar(0x202E) + QChar(0xD800) + QString(1000, QChar(0x0301));
    for (const Style style : { Style::Default, Style::Subtitle, Style::Value1 }) {
        Cell cell(style);
        cell.textLabel()->setText(hostile);
        if (cell.detailTextLabel())
            cell.detailTextLabel()->setText(hostile);
        cell.setNeedsLayout();
        EXPECT_LE(rightOf(cell.textLabel()), 304.01);
        EXPECT_LE(cell.textLabel()->shownText().size(), 1000);
        EXPECT_EQ(cell.textLabel()->text().size(), hostile.size());
    }
}

TEST(TableViewCell, obeysItsLayoutMargins)
{
    Cell cell(Style::Default);
    cell.setLayoutMargins({ 0, 60, 0, 30 });
    EXPECT_EQ(cell.textLabel()->frame(), QRectF(60, 0, 230, 60));
}

TEST(TableViewCell, keepsEverythingButItsSelectionForItsNextRow)
{
    Cell cell(Style::Subtitle);
    cell.textLabel()->setText(QStringLiteral("Name"));
    cell.detailTextLabel()->setText(QStringLiteral("Detail"));
    cell.setAccessoryView(new kit::View({ 0, 0, 70, 30 }));
    cell.imageView()->setImage(picture(24));
    cell.setSelected(true, kit::TableViewCell::Fade::Animated);
    cell.setPressed(true);
    cell.prepareForReuse();
    EXPECT_FALSE(cell.isHighlighted());
    EXPECT_FALSE(cell.fadesSelection());
    EXPECT_EQ(cell.textLabel()->text(), QStringLiteral("Name"));
    EXPECT_EQ(cell.detailTextLabel()->text(), QStringLiteral("Detail"));
    EXPECT_NE(cell.accessoryView(), nullptr);
    EXPECT_FALSE(cell.imageView()->image().isNull());
}

TEST(TableViewCell, goesOnFadingWhenItIsLetGoOfWithoutHavingBeenPressed)
{
    kit::TableViewCell cell(kit::TableViewCell::Style::Default, QStringLiteral("Cell"));
    cell.setSelected(true, kit::TableViewCell::Fade::Immediately);
    cell.setSelected(false, kit::TableViewCell::Fade::Animated);
    cell.setPressed(false);
    EXPECT_TRUE(cell.fadesSelection());
    cell.setPressed(true);
    EXPECT_FALSE(cell.fadesSelection());
}

TEST(TableViewCell, tellsOnceThatItStandsForAnotherRow)
{
    Cell cell(Style::Default);
    const QSignalSpy changed(&cell, &kit::TableViewCell::rowChanged);
    for (int time = 0; time < 2; ++time) {
        cell.setIndexPath({ 1, 2 });
        cell.setRowCount(5);
        cell.setMeetsHeader(true);
    }
    EXPECT_EQ(changed.count(), 3);
    EXPECT_EQ(cell.section(), 1);
    EXPECT_EQ(cell.row(), 2);
    EXPECT_EQ(cell.rowCount(), 5);
    EXPECT_TRUE(cell.meetsHeader());
}

TEST(TableViewCell, tellsOfItsViewsAndOfItsSeparator)
{
    Cell cell(Style::Default);
    const QSignalSpy changed(&cell, &kit::TableViewCell::cellChanged);
    cell.setAccessoryView(new kit::View);
    cell.setBackgroundView(new kit::View);
    EXPECT_EQ(changed.count(), 2);
    for (int time = 0; time < 2; ++time)
        cell.setSeparatorInset({ 0, 15, 0, 7 });
    EXPECT_EQ(changed.count(), 3);
    EXPECT_EQ(cell.separatorLeft(), 15);
    EXPECT_EQ(cell.separatorRight(), 7);
}

TEST(TableViewCell, tellsHowItsSelectionChangesBeforeThatItDoes)
{
    Cell cell(Style::Default);
    QStringList told;
    QObject::connect(&cell, &kit::TableViewCell::fadesSelectionChanged, &cell,
        [&] { told.append(cell.fadesSelection() ? QStringLiteral("fades") : QStringLiteral("at once")); });
    QObject::connect(&cell, &kit::TableViewCell::selectionChanged, &cell,
        [&] { told.append(cell.isHighlighted() ? QStringLiteral("on") : QStringLiteral("off")); });
    const QString atOnce = QStringLiteral("at once");
    const QString fades = QStringLiteral("fades");
    const QString on = QStringLiteral("on");
    const QString off = QStringLiteral("off");
    cell.setPressed(true);
    cell.setPressed(true);
    EXPECT_EQ(std::exchange(told, {}), (QStringList{ atOnce, on }));
    cell.setPressed(false);
    cell.setSelected(true, kit::TableViewCell::Fade::Immediately);
    cell.setSelected(true, kit::TableViewCell::Fade::Immediately);
    EXPECT_EQ(std::exchange(told, {}), (QStringList{ atOnce, off, atOnce, on }));
    cell.setSelected(false, kit::TableViewCell::Fade::Animated);
    EXPECT_EQ(std::exchange(told, {}), (QStringList{ fades, off }));
    cell.setSelected(false, kit::TableViewCell::Fade::Immediately);
    EXPECT_FALSE(cell.fadesSelection());
}
