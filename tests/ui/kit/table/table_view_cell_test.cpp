#include "ui/kit/table/TableViewCell.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <gtest/gtest.h>

#include <cmath>

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

kit::Image picture(const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return kit::Image::fromData(bytes, 1);
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
    EXPECT_NEAR(cell.textLabel()->frame().center().y(), 30, 1);
    EXPECT_EQ(cell.detailTextLabel()->height(), 0);
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

TEST(TableViewCell, showsTheAccessoryOfItsType)
{
    Cell cell(Style::Default);
    EXPECT_EQ(cell.shownAccessory(), nullptr);
    cell.setAccessoryType(AccessoryType::DisclosureIndicator);
    const kit::View* arrow = cell.shownAccessory();
    ASSERT_NE(arrow, nullptr);
    EXPECT_EQ(arrow->frame().size(), QSizeF(24, 24));
    EXPECT_EQ(arrow->frame().top(), 18);
    EXPECT_LE(rightOf(arrow), 320);
    EXPECT_LE(cell.contentView()->width(), arrow->frame().left());
    cell.setAccessoryType(AccessoryType::None);
    EXPECT_EQ(cell.shownAccessory(), nullptr);
    EXPECT_EQ(cell.contentView()->width(), 320);
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
    EXPECT_NE(static_cast<kit::ImageView*>(cell.shownAccessory())->tintColor(), (kit::Color{ 0, 1, 0, 1, {} }));
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
}

TEST(TableViewCell, leavesASmallImageAsLargeAsItIs)
{
    Cell cell(Style::Subtitle);
    cell.imageView()->setImage(picture({ 42, 20 }));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(16, 20, 42, 20));
}

TEST(TableViewCell, hasNoNegativeWidthsInARowThatIsTooNarrow)
{
    for (const Style style : { Style::Default, Style::Subtitle, Style::Value1 }) {
        Cell cell(style);
        cell.textLabel()->setText(QStringLiteral("Name"));
        cell.setAccessoryView(new kit::View({ 0, 0, 70, 30 }));
        cell.imageView()->setImage(picture(24));
        cell.setFrame({ 0, 0, 20, 10 });
        EXPECT_GE(cell.textLabel()->width(), 0);
        EXPECT_GE(cell.contentView()->width(), 0);
        EXPECT_GE(cell.imageView()->height(), 0);
        if (cell.detailTextLabel()) {
            EXPECT_GE(cell.detailTextLabel()->width(), 0);
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
