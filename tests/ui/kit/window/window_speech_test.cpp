// What a screen reader gets of the parts of a window: what it can ask of each, and what it can do with it.
#include "tests/ui/kit/window/KitWindowTest.h"
#include "ui/kit/view/ImageView.h"

#include <utility>
#include <vector>

namespace {

class Speech : public KitWindowTest
{
protected:
    Speech() { grabbed(); }

    kit::TableView& table() const { return *one->tableView(); }
    static QStringList actions(QAccessibleInterface* interface) { return interface->actionInterface()->actionNames(); }
    static void act(QAccessibleInterface* interface, const QString& action)
    {
        interface->actionInterface()->doAction(action);
        QCoreApplication::processEvents();
    }
    // The names of what stands in a thing, in the order in which it is met.
    static QStringList namesIn(QAccessibleInterface* interface)
    {
        QStringList names;
        for (int index = 0; index < interface->childCount(); ++index)
            names.append(interface->child(index)->text(QAccessible::Name));
        return names;
    }
    // The field of an alert that asks for an address, with a text in it.
    QAccessibleInterface* openField(const QString& text)
    {
        kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
        alert->addTextField()->setPlaceholder(QStringLiteral("Address"));
        alert->addAction(QStringLiteral("Add"), kit::AlertAction::Style::Default);
        one->present(alert);
        grabbed();
        QAccessibleInterface* const field = accessible(QStringLiteral("Address"));
        field->setText(QAccessible::Value, text);
        return field;
    }
    // The names of those of the list's parts, in the order in which they are met.
    QStringList metOf(const QStringList& names) const
    {
        QStringList met = namesIn(accessible(QStringLiteral("Row 0.0"))->parent());
        met.removeIf([&](const QString& name) { return !names.contains(name); });
        return met;
    }
    void addToHeader(const QString& text, const QRectF& frame)
    {
        auto* const label = new kit::Label(frame);
        label->setText(text);
        table().tableHeaderView()->addSubview(label);
    }
    static QString written(QAccessibleInterface* field) { return field->text(QAccessible::Value); }
};

} // namespace

TEST_F(Speech, meetsNothingThatIsHidden)
{
    kit::View* const header = table().tableHeaderView();
    QAccessibleInterface* const list = accessible(QStringLiteral("Row 0.0"))->parent();
    ASSERT_TRUE(namesIn(list).contains(QStringLiteral("Welcome")));
    header->setHidden(true);
    grabbed();
    EXPECT_FALSE(namesIn(list).contains(QStringLiteral("Welcome")));
    header->setHidden(false);
    grabbed();
    EXPECT_TRUE(namesIn(list).contains(QStringLiteral("Welcome")));
}

TEST_F(Speech, meetsNothingMoreOfWhatWasTakenAway)
{
    ASSERT_NE(accessible(QStringLiteral("Welcome")), nullptr);
    table().setTableHeaderView(nullptr);
    EXPECT_EQ(accessible(QStringLiteral("Welcome")), nullptr);
}

TEST_F(Speech, meetsWhatStandsAtOnePlaceInTheOrderInWhichItWasPutThere)
{
    const QStringList names{ QStringLiteral("Lowest"), QStringLiteral("Middle"), QStringLiteral("Topmost") };
    for (const QString& name : names)
        addToHeader(name, { 10, 60, 100, 20 });
    grabbed();
    EXPECT_EQ(metOf(names), names);
}

TEST_F(Speech, meetsALineFromTheLeftToTheRight)
{
    addToHeader(QStringLiteral("Third"), { 220, 60, 50, 20 });
    addToHeader(QStringLiteral("First"), { 10, 62, 50, 20 });
    addToHeader(QStringLiteral("Second"), { 110, 58, 50, 20 });
    addToHeader(QStringLiteral("Next line"), { 0, 78, 50, 20 });
    grabbed();
    const QStringList names{ QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Third"),
        QStringLiteral("Next line") };
    EXPECT_EQ(metOf(names), names);
}

TEST_F(Speech, meetsWhatStandsLowerAfterwardsAlsoIfItBeginsFartherToTheLeft)
{
    addToHeader(QStringLiteral("Lower"), { 10, 80, 50, 20 });
    addToHeader(QStringLiteral("Upper"), { 220, 60, 50, 20 });
    grabbed();
    const QStringList names{ QStringLiteral("Upper"), QStringLiteral("Lower") };
    EXPECT_EQ(metOf(names), names);
}

TEST_F(Speech, meetsTheListsPartsFromTopToBottom)
{
    QAccessibleInterface* const list = accessible(QStringLiteral("Row 0.0"))->parent();
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(namesIn(list).mid(0, 5),
        (QStringList{ QStringLiteral("Welcome"), QStringLiteral("Section 0"), QStringLiteral("Row 0.0"),
            QStringLiteral("Row 0.1"), QStringLiteral("Row 0.2") }));
    for (int index = 0; index < list->childCount(); ++index) {
        EXPECT_EQ(list->indexOfChild(list->child(index)), index);
        EXPECT_EQ(list->child(index)->parent(), list);
    }
    EXPECT_EQ(list->child(list->childCount()), nullptr);
    EXPECT_EQ(list->indexOfChild(list), -1);
}

TEST_F(Speech, meetsAControlOfARowWithinTheRow)
{
    QAccessibleInterface* const row = accessible(QStringLiteral("Row 0.1"));
    EXPECT_EQ(namesIn(row), QStringList(QStringLiteral("Press")));
    EXPECT_EQ(row->child(0)->parent(), row);
    EXPECT_TRUE(row->rect().contains(row->child(0)->rect()));
}

TEST_F(Speech, offersDeletionOnlyWhereARowCanBeDeleted)
{
    EXPECT_TRUE(actions(accessible(QStringLiteral("Row 0.1"))).contains(QStringLiteral("Delete")));
    EXPECT_FALSE(actions(accessible(QStringLiteral("Row 1.0"))).contains(QStringLiteral("Delete")));
    act(accessible(QStringLiteral("Row 1.0")), QStringLiteral("Delete"));
    EXPECT_EQ(one->firstSectionRows, 5);
    act(accessible(QStringLiteral("Row 0.1")), QStringLiteral("Delete"));
    EXPECT_EQ(one->firstSectionRows, 4);
}

TEST_F(Speech, givesTheKeyboardToARow)
{
    act(accessible(QStringLiteral("Row 0.2")), QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(table().rowFocus()->row(), 2);
    EXPECT_TRUE(accessible(QStringLiteral("Row 0.2"))->state().focused);
    press(Qt::Key_Down);
    EXPECT_EQ(table().rowFocus()->row(), 3);
}

TEST_F(Speech, tellsTheCheckmarkOfARow)
{
    EXPECT_EQ(accessible(QStringLiteral("Row 0.2"))->text(QAccessible::Description),
        QStringLiteral("Detail, checked, 3 of 5"));
}

TEST_F(Speech, meetsTheTitleOfAHeaderOnce)
{
    QAccessibleInterface* const header = accessible(QStringLiteral("Section 0"));
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->role(), QAccessible::Heading);
    EXPECT_EQ(namesIn(header), QStringList());
}

TEST_F(Speech, tellsThePlacesAnewWhenARowIsGone)
{
    --one->firstSectionRows;
    table().deleteRow({ 0, 0 }, kit::TableView::Animation::None);
    EXPECT_TRUE(accessible(QStringLiteral("Row 0.4"))->text(QAccessible::Description).endsWith(u"4 of 4"));
}

TEST_F(Speech, findsNothingAndDoesNothingBehindAnAlert)
{
    QAccessibleInterface* const row = accessible(QStringLiteral("Row 0.2"));
    openField({});
    EXPECT_EQ(accessible(QStringLiteral("Row 0.2")), nullptr);
    EXPECT_TRUE(actions(row).isEmpty());
    act(row, QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(stack(0)->canGoBack());
    EXPECT_TRUE(row->state().disabled);
}

TEST_F(Speech, readsAFieldByItsLetters)
{
    QAccessibleInterface* const field = openField(QStringLiteral("http://one"));
    QAccessibleTextInterface* const text = field->textInterface();
    EXPECT_EQ(text->characterCount(), 10);
    EXPECT_EQ(text->text(7, 10), QStringLiteral("one"));
    EXPECT_TRUE(field->rect().contains(text->characterRect(3).center()));
    EXPECT_EQ(text->offsetAtPoint(text->characterRect(3).center() + QPoint(2, 0)), 3);
    EXPECT_EQ(text->offsetAtPoint(field->rect().topLeft() - QPoint(50, 50)), -1);
    int begin = -1;
    int end = -1;
    text->attributes(4, &begin, &end);
    EXPECT_EQ(begin, 0);
    EXPECT_EQ(end, 10);
}

TEST_F(Speech, movesInAFieldAndSelects)
{
    QAccessibleTextInterface* const text = openField(QStringLiteral("http://one"))->textInterface();
    text->setCursorPosition(4);
    EXPECT_EQ(text->cursorPosition(), 4);
    EXPECT_EQ(text->selectionCount(), 0);
    text->addSelection(7, 10);
    int begin = 0;
    int end = 0;
    text->selection(0, &begin, &end);
    EXPECT_EQ(text->selectionCount(), 1);
    EXPECT_EQ(begin, 7);
    EXPECT_EQ(end, 10);
    text->removeSelection(0);
    EXPECT_EQ(text->selectionCount(), 0);
}

TEST_F(Speech, writesIntoAFieldByParts)
{
    QAccessibleInterface* const field = openField(QStringLiteral("http://one"));
    QAccessibleEditableTextInterface* const text = field->editableTextInterface();
    ASSERT_NE(text, nullptr);
    text->replaceText(7, 10, QStringLiteral("two"));
    EXPECT_EQ(written(field), QStringLiteral("http://two"));
    text->insertText(4, QStringLiteral("s"));
    text->deleteText(8, 11);
    EXPECT_EQ(written(field), QStringLiteral("https://"));
    EXPECT_TRUE(field->state().editable);
}

TEST_F(Speech, givesTheKeyboardToAField)
{
    QAccessibleInterface* const field = openField(QStringLiteral("text"));
    press(Qt::Key_Tab);
    ASSERT_FALSE(field->state().focused);
    act(field, QStringLiteral("No such action"));
    EXPECT_FALSE(field->state().focused);
    act(field, QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(field->state().focused);
}

TEST_F(Speech, readsAFieldByParts)
{
    QAccessibleInterface* const field = openField(QStringLiteral("http://one"));
    EXPECT_TRUE(field->state().selectableText);
    EXPECT_FALSE(field->state().searchEdit);
    EXPECT_EQ(field->text(QAccessible::Name), QStringLiteral("Address"));
    EXPECT_EQ(field->text(QAccessible::Description), QString());
    QAccessibleTextInterface* const text = field->textInterface();
    EXPECT_EQ(text->characterCount(), 10);
    EXPECT_EQ(text->text(0, 4), QStringLiteral("http"));
    EXPECT_EQ(text->text(2, 4), QStringLiteral("tp"));
    EXPECT_EQ(text->text(7, 10), QStringLiteral("one"));
}

TEST_F(Speech, knowsOfOneSelectionInAFieldAtMost)
{
    QAccessibleTextInterface* const text = openField(QStringLiteral("http://one"))->textInterface();
    text->setSelection(0, 7, 10);
    text->setSelection(1, 0, 4);
    text->removeSelection(1);
    int begin = -1;
    int end = -1;
    text->selection(1, &begin, &end);
    EXPECT_EQ(begin, 0);
    EXPECT_EQ(end, 0);
    text->selection(0, &begin, &end);
    EXPECT_EQ(begin, 7);
    EXPECT_EQ(end, 10);
}

TEST_F(Speech, findsTheLettersOfAFieldByTheirPlacesOnTheScreen)
{
    QAccessibleInterface* const field = openField(QStringLiteral("http://one"));
    quick()->setPosition(40, 30);
    ASSERT_TRUE(waitUntil([this] { return quick()->mapToGlobal(QPoint(0, 0)) == QPoint(40, 30); }));
    QAccessibleTextInterface* const text = field->textInterface();
    EXPECT_EQ(text->characterRect(0).left(), field->rect().left());
    EXPECT_NEAR(text->characterRect(0).center().y(), field->rect().center().y(), 1);
    const int middle = field->rect().center().y();
    for (int place = 0; place < text->characterCount(); ++place)
        EXPECT_EQ(text->offsetAtPoint({ text->characterRect(place).left(), middle }), place);
    EXPECT_EQ(text->offsetAtPoint({ text->characterRect(3).left(), field->rect().bottom() + 9 }), -1) << "below it";
    EXPECT_EQ(text->offsetAtPoint({ text->characterRect(10).left() + 1, middle }), -1) << "after the last letter";
}

TEST_F(Speech, writesNothingIntoAFieldThatIsOutOfReach)
{
    press(Qt::Key_2, Qt::ControlModifier);
    grabbed();
    QAccessibleInterface* const field = accessible(QStringLiteral("Find"));
    ASSERT_NE(field, nullptr);
    openField({});
    field->setText(QAccessible::Value, QStringLiteral("one"));
    field->editableTextInterface()->insertText(0, QStringLiteral("two"));
    EXPECT_EQ(written(field), QString());
    EXPECT_TRUE(actions(field).isEmpty());
}

TEST_F(Speech, findsADialogModalAndARunningRefreshBusy)
{
    EXPECT_EQ(accessible(QStringLiteral("Refreshing")), nullptr);
    table().refreshControl()->beginRefreshing();
    ASSERT_TRUE(waitUntil([this] { return accessible(QStringLiteral("Refreshing")) != nullptr; }));
    EXPECT_TRUE(accessible(QStringLiteral("Refreshing"))->state().busy);
    table().refreshControl()->endRefreshing();
    EXPECT_EQ(accessible(QStringLiteral("Refreshing")), nullptr);
    QAccessibleInterface* const dialog = openField({})->parent();
    EXPECT_EQ(dialog->role(), QAccessible::Dialog);
    EXPECT_TRUE(dialog->state().modal);
}

TEST_F(Speech, tellsADetailOfOneLetter)
{
    table().cellForRow({ 0, 3 })->detailTextLabel()->setText(QStringLiteral("7"));
    EXPECT_EQ(accessible(QStringLiteral("Row 0.3"))->text(QAccessible::Description), QStringLiteral("7, 4 of 5"));
}

TEST_F(Speech, tellsThePlaceOfARowThatIsNotAlone)
{
    one->firstSectionRows = 2;
    table().reloadData();
    grabbed();
    EXPECT_EQ(accessible(QStringLiteral("Row 0.0"))->text(QAccessible::Description), QStringLiteral("Detail, 1 of 2"));
    one->firstSectionRows = 1;
    table().reloadData();
    grabbed();
    EXPECT_EQ(accessible(QStringLiteral("Row 0.0"))->text(QAccessible::Description), QStringLiteral("Detail"));
}

TEST_F(Speech, tellsOfTheBackButtonAloneWhatElseIsWrittenOnIt)
{
    EXPECT_EQ(accessible(QStringLiteral("Reload"))->text(QAccessible::Description), QString());
    stack(0)->pushViewController(new ListScreen(QStringLiteral("Next")), kit::NavigationController::Animation::None);
    grabbed();
    EXPECT_EQ(accessible(QStringLiteral("Back"))->text(QAccessible::Description), QStringLiteral("One"));
}

TEST_F(Speech, findsAPictureThatHasANameAndNoOther)
{
    auto* const header = new kit::View({ 0, 0, 390, 60 });
    auto* const named = new kit::ImageView;
    named->setFrame({ 0, 0, 60, 60 });
    named->setAccessibilityLabel(QStringLiteral("A lantern"));
    header->addSubview(named);
    header->addSubview(new kit::ImageView);
    table().setTableHeaderView(header);
    grabbed();
    QAccessibleInterface* const found = accessible(QStringLiteral("A lantern"));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->role(), QAccessible::Graphic);
    EXPECT_FALSE(namesIn(found->parent()).contains(QString()));
}

TEST_F(Speech, tellsThePlaceOfARowWithoutADetail)
{
    class Plain : public ListScreen
    {
    public:
        using ListScreen::ListScreen;
        kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override
        {
            auto* const cell = new kit::TableViewCell(kit::TableViewCell::Style::Default, QStringLiteral("plain"));
            cell->textLabel()->setText(nameOf(indexPath));
            return cell;
        }
    };
    stack(0)->pushViewController(new Plain(QStringLiteral("Plain")), kit::NavigationController::Animation::None);
    grabbed();
    QAccessibleInterface* const row = accessible(QStringLiteral("Row 0.3"));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->text(QAccessible::Description), QStringLiteral("4 of 5"));
}

TEST_F(Speech, tellsWhatEachThingIs)
{
    const std::vector<std::pair<QString, QAccessible::Role>> expected{
        { QStringLiteral("Row 0.3"), QAccessible::ListItem },
        { QStringLiteral("Section 0"), QAccessible::Heading },
        { QStringLiteral("Reload"), QAccessible::Button },
        { QStringLiteral("About"), QAccessible::Button },
        { QStringLiteral("Press"), QAccessible::Button },
        { QStringLiteral("Two"), QAccessible::PageTab },
    };
    for (const auto& [name, role] : expected) {
        const QAccessibleInterface* const found = accessible(name);
        ASSERT_NE(found, nullptr) << name.toStdString();
        EXPECT_EQ(found->role(), role) << name.toStdString();
    }
    EXPECT_EQ(accessible(QStringLiteral("Row 0.3"))->text(QAccessible::Description), QStringLiteral("Detail, 4 of 5"));
}

TEST_F(Speech, tellsWhichButtonsAreDisabled)
{
    const auto isDisabled = [this](const QString& name) {
        const QAccessibleInterface* const found = accessible(name);
        return found && found->state().disabled;
    };
    EXPECT_FALSE(isDisabled(QStringLiteral("Reload")));
    EXPECT_FALSE(isDisabled(QStringLiteral("Press")));
    one->navigationItem()->rightBarButtonItem()->setEnabled(false);
    static_cast<kit::Button*>(one->tableView()->cellForRow({ 0, 1 })->accessoryView())->setEnabled(false);
    EXPECT_TRUE(isDisabled(QStringLiteral("Reload")));
    EXPECT_TRUE(isDisabled(QStringLiteral("Press")));
    EXPECT_FALSE(isDisabled(QStringLiteral("About")));
    one->navigationItem()->rightBarButtonItem()->setEnabled(true);
    EXPECT_FALSE(isDisabled(QStringLiteral("Reload")));
}

TEST_F(Speech, doesAtAPressWhatATapDoes)
{
    const auto pressed = [this](const QString& name) {
        QAccessibleInterface* const found = accessible(name);
        ASSERT_NE(found, nullptr) << name.toStdString();
        ASSERT_NE(found->actionInterface(), nullptr);
        found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    };
    pressed(QStringLiteral("Press"));
    EXPECT_EQ(one->buttonPresses, 1);
    pressed(QStringLiteral("Reload"));
    EXPECT_EQ(one->reloads, 1);
    pressed(QStringLiteral("Row 0.3"));
    EXPECT_EQ(stack(0)->topViewController()->title(), QStringLiteral("Row 0.3"));
    grabbed();
    pressed(QStringLiteral("Back"));
    EXPECT_FALSE(stack(0)->canGoBack());
    pressed(QStringLiteral("Two"));
    EXPECT_EQ(tabs->selectedIndex(), 1);
}

TEST_F(Speech, tellsNoMoreOfATextThanIsShown)
{
    kit::TableViewCell* const cell = one->tableView()->cellForRow({ 0, 3 });
    cell->textLabel()->setText(QString(2'000'000, u'W'));
    cell->detailTextLabel()->setText(QString(2'000'000, u'M'));
    grabbed();
    const QAccessibleInterface* const row = accessible(cell->textLabel()->shownText());
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->text(QAccessible::Description), cell->detailTextLabel()->shownText() + QStringLiteral(", 4 of 5"));
}
