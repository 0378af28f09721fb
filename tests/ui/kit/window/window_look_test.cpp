// What a person prefers of texts and movements, followed while the window is open.
#include "tests/ui/kit/window/KitWindowTest.h"
#include "ui/kit/paint/Animations.h"
#include "ui/kit/text/TextScale.h"

#include <QFontMetricsF>

namespace {

class Look : public KitWindowTest
{
protected:
    Look() { grabbed(); }
    ~Look() override
    {
        kit::TextScale::set(1);
        kit::Animations::setEnabled(false);
    }

    void enlargeTexts()
    {
        kit::TextScale::set(2);
        window->drawAnew();
        grabbed();
    }
    // Of the item in the window that draws that text.
    int drawnSizeOf(const QString& text) const
    {
        const QQuickItem* const item = itemWithText(text);
        return item ? item->property("font").value<QFont>().pixelSize() : 0;
    }
    // As many letters as there is room for in a font of so many pixels.
    static QString filling(double width, QFont font, int pixels)
    {
        font.setPixelSize(pixels);
        QString text;
        while (QFontMetricsF(font).horizontalAdvance(text + u'i') < width)
            text += u'i';
        return text;
    }
    int drawnItems() const
    {
        int count = 0;
        std::vector<QQuickItem*> open{ quick()->contentItem() };
        while (!open.empty()) {
            const QQuickItem* const item = open.back();
            open.pop_back();
            ++count;
            for (QQuickItem* child : item->childItems())
                open.push_back(child);
        }
        return count;
    }
};

} // namespace

TEST_F(Look, drawsTheTextsOfRowsBarsAndTabsInTheirNewSize)
{
    const int row = drawnSizeOf(QStringLiteral("Row 0.3"));
    const int button = drawnSizeOf(QStringLiteral("Reload"));
    ASSERT_GT(row, 0);
    enlargeTexts();
    EXPECT_EQ(drawnSizeOf(QStringLiteral("Row 0.3")), row * 2);
    EXPECT_EQ(drawnSizeOf(QStringLiteral("Reload")), button * 5 / 4);
    EXPECT_EQ(one->tableView()->rectForRow({ 0, 3 }).height(), 96);
}

TEST_F(Look, shrinksATitleToItsUsualSizeBeforeItIsCutShort)
{
    constexpr int Usual = 16;
    const auto present = [this](const QString& title) {
        kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
        alert->addAction(title, kit::AlertAction::Style::Default);
        one->present(alert);
        grabbed();
    };
    enlargeTexts();
    present(QStringLiteral("OK"));
    const QQuickItem& button = *itemWithText(QStringLiteral("OK"));
    const QString title = filling(button.width(), button.property("font").value<QFont>(), Usual);
    press(Qt::Key_Return);
    present(title);
    EXPECT_FALSE(itemWithText(title)->property("truncated").toBool());
    press(Qt::Key_Return);
    present(title + QStringLiteral("iii"));
    EXPECT_TRUE(itemWithText(title + QStringLiteral("iii"))->property("truncated").toBool());
    press(Qt::Key_Return);
}

TEST_F(Look, keepsWhatAPersonWasDoing)
{
    press(Qt::Key_F, Qt::ControlModifier);
    type(QStringLiteral("vesk"));
    two->tableView()->setContentOffset(300);
    enlargeTexts();
    EXPECT_EQ(two->navigationItem()->searchController()->searchBar()->text(), QStringLiteral("vesk"));
    EXPECT_EQ(accessible(QStringLiteral("Find"))->text(QAccessible::Value), QStringLiteral("vesk"));
    EXPECT_EQ(tabs->selectedIndex(), 1);
    EXPECT_EQ(two->tableView()->contentOffset(), 300);
    EXPECT_TRUE(waitUntil([this] { return drawnSizeOf(QStringLiteral("Cancel")) > 15; }));
    press(Qt::Key_1, Qt::ControlModifier);
    tap(middleOf({ 0, 3 }));
    EXPECT_TRUE(stack(0)->canGoBack());
}

TEST_F(Look, keepsAnAlertAndWhatIsTypedIntoIt)
{
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    const kit::AlertTextField* const field = alert->addTextField();
    alert->addAction(QStringLiteral("Add"), kit::AlertAction::Style::Default);
    one->present(alert);
    grabbed();
    type(QStringLiteral("vesk"));
    enlargeTexts();
    EXPECT_EQ(drawnSizeOf(QStringLiteral("Message")), 28);
    type(QStringLiteral("s"));
    EXPECT_TRUE(field->text().contains(QStringLiteral("vesk"))) << field->text().toStdString();
    EXPECT_EQ(field->text().size(), 5);
}

TEST_F(Look, movesNothingAnyMoreWhenAPersonAsksForThat)
{
    kit::Animations::setEnabled(true);
    window->drawAnew();
    grabbed();
    one->tableView()->refreshControl()->beginRefreshing();
    EXPECT_GT(one->tableView()->contentOffset(), -60) << "on its way";
    EXPECT_TRUE(waitUntil([this] { return one->tableView()->contentOffset() == -60; }));
    one->tableView()->refreshControl()->endRefreshing();
    EXPECT_TRUE(waitUntil([this] { return one->tableView()->contentOffset() == 0; }));
    grabbed();
    kit::Animations::setEnabled(false);
    window->drawAnew();
    grabbed();
    one->tableView()->refreshControl()->beginRefreshing();
    EXPECT_EQ(one->tableView()->contentOffset(), -60) << "at once";
}

TEST_F(Look, drawsNothingMoreOfAViewThatWasTakenAway)
{
    const int before = drawnItems();
    kit::View& header = *one->tableView()->tableHeaderView();
    const auto label = std::make_unique<kit::Label>(QRectF(10, 60, 100, 20));
    header.addSubview(label.get());
    grabbed();
    EXPECT_GT(drawnItems(), before);
    label->removeFromSuperview();
    grabbed();
    EXPECT_EQ(drawnItems(), before);
}

TEST_F(Look, drawsNothingOfALabelThatIsHidden)
{
    QQuickItem* const drawn = const_cast<QQuickItem*>(itemWithText(QStringLiteral("Welcome")));
    ASSERT_TRUE(drawn && drawn->isVisible());
    auto* const label = drawn->property("view").value<kit::View*>();
    label->setHidden(true);
    EXPECT_FALSE(drawn->isVisible());
    label->setHidden(false);
    EXPECT_TRUE(drawn->isVisible());
}

TEST_F(Look, letsNoTitleTurnTheLettersThatFollow)
{
    const QString title = QStringLiteral("Evening ") + QChar(0x202e) + QStringLiteral("gnp.exe");
    const QString harmless = QStringLiteral("Evening gnp.exe");
    stack(0)->pushViewController(new ListScreen(title), kit::NavigationController::Animation::None);
    grabbed();
    EXPECT_NE(itemWithText(harmless), nullptr) << "as the title of its screen";
    EXPECT_EQ(itemWithText(title), nullptr);
    stack(0)->pushViewController(new ListScreen(QStringLiteral("Next")), kit::NavigationController::Animation::None);
    grabbed();
    EXPECT_NE(itemWithText(harmless), nullptr) << "on the button that leads back to it";
    EXPECT_EQ(itemWithText(title), nullptr);
}

TEST_F(Look, drawsALongTextToItsEnd)
{
    constexpr int Lines = 900;
    constexpr int LineHeight = 30;
    auto* const header = new kit::View({ 0, 0, 390, Lines * LineHeight });
    header->setBackgroundColor(kit::Color::white());
    auto* const label = new kit::Label({ 0, 0, 390, Lines * LineHeight });
    label->setNumberOfLines(0);
    label->setText(QStringLiteral("a line of many\n").repeated(Lines));
    header->addSubview(label);
    one->tableView()->setTableHeaderView(header);
    const QQuickItem& drawn = *itemWithText(label->shownText());
    const double text = drawn.property("contentHeight").toDouble();
    // The label stands in the middle of its frame.
    one->tableView()->setContentOffset((header->frame().height() + text) / 2 - 400);
    const QImage picture = grabbed();
    int inked = 0;
    for (int y = 100; y < 400; ++y)
        for (int x = 0; x < 200; ++x)
            inked += qGray(picture.pixel(x, y)) < 128 ? 1 : 0;
    EXPECT_GT(inked, 1'000);
}
