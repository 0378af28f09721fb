#include "ui/kit/alert/AlertController.h"

#include "tests/ui/kit/table/TableWorld.h"

#include <QSignalSpy>
#include <QStringList>

#include <gtest/gtest.h>

namespace {

using Style = kit::AlertAction::Style;

struct Alert : kit::AlertController
{
    explicit Alert(kit::AlertController::Style style = kit::AlertController::Style::Alert)
        : kit::AlertController(QStringLiteral("Title"), QStringLiteral("Message"), style)
    {
    }
    void add(const QString& title, kit::AlertAction::Style style)
    {
        addAction(title, style, [this, title] { chosen.append(title); });
    }
    QStringList chosen;
};

} // namespace

TEST(AlertController, holdsWhatItWasMadeOf)
{
    Alert alert(kit::AlertController::Style::ActionSheet);
    alert.add(QStringLiteral("Uninstall"), Style::Destructive);
    alert.add(QStringLiteral("Cancel"), Style::Cancel);
    EXPECT_EQ(alert.title(), QStringLiteral("Title"));
    EXPECT_EQ(alert.message(), QStringLiteral("Message"));
    EXPECT_TRUE(alert.isSheet());
    ASSERT_EQ(alert.actions().size(), 2);
    EXPECT_TRUE(alert.actions().at(0)->isDestructive());
    EXPECT_TRUE(alert.actions().at(1)->isCancel());
}

TEST(AlertController, runsTheChosenActionOnceAndAfterItIsDismissed)
{
    Alert alert;
    alert.add(QStringLiteral("Cancel"), Style::Cancel);
    alert.add(QStringLiteral("Add"), Style::Default);
    QStringList order;
    QObject::connect(&alert, &kit::AlertController::dismissed, &alert, [&] {
        EXPECT_TRUE(alert.chosen.isEmpty());
        order.append(QStringLiteral("dismissed"));
    });
    alert.choose(1);
    alert.choose(1);
    alert.choose(0);
    alert.confirm();
    alert.cancel();
    EXPECT_EQ(alert.chosen, QStringList{ QStringLiteral("Add") });
    EXPECT_EQ(order.size(), 1);
}

TEST(AlertController, ignoresActionsThatAreNotThere)
{
    Alert alert;
    alert.add(QStringLiteral("OK"), Style::Default);
    QSignalSpy dismissed(&alert, &kit::AlertController::dismissed);
    alert.choose(-1);
    alert.choose(1);
    EXPECT_EQ(dismissed.count(), 0);
}

TEST(AlertController, needsNoHandlerToBeDismissed)
{
    kit::AlertController alert(QStringLiteral("Title"), QStringLiteral("Message"), kit::AlertController::Style::Alert);
    alert.addAction(QStringLiteral("Close"), Style::Default);
    QSignalSpy dismissed(&alert, &kit::AlertController::dismissed);
    alert.choose(0);
    EXPECT_EQ(dismissed.count(), 1);
}

TEST(AlertController, takesTheLastDefaultActionAtReturnAndTheCancelOneAtEscape)
{
    for (const bool isReturn : { true, false }) {
        Alert alert;
        alert.add(QStringLiteral("Cancel"), Style::Cancel);
        alert.add(QStringLiteral("Add"), Style::Default);
        if (isReturn)
            alert.confirm();
        else
            alert.cancel();
        EXPECT_EQ(alert.chosen, QStringList{ isReturn ? QStringLiteral("Add") : QStringLiteral("Cancel") });
    }
}

TEST(AlertController, takesItsOnlyActionAtReturnAndAtEscapeWhateverItsStyle)
{
    for (const Style style : { Style::Default, Style::Cancel }) {
        Alert first;
        first.add(QStringLiteral("Close"), style);
        first.confirm();
        EXPECT_EQ(first.chosen.size(), 1);
        Alert second;
        second.add(QStringLiteral("Close"), style);
        second.cancel();
        EXPECT_EQ(second.chosen.size(), 1);
    }
}

TEST(AlertController, doesNothingDestructiveAtReturn)
{
    Alert alert(kit::AlertController::Style::ActionSheet);
    alert.add(QStringLiteral("Uninstall"), Style::Destructive);
    alert.add(QStringLiteral("Cancel"), Style::Cancel);
    alert.confirm();
    EXPECT_TRUE(alert.chosen.isEmpty());
    alert.choose(0);
    EXPECT_EQ(alert.chosen, QStringList{ QStringLiteral("Uninstall") });
}

TEST(AlertController, staysAtEscapeWhenNoneOfItsActionsCancels)
{
    Alert alert;
    alert.add(QStringLiteral("Yes"), Style::Default);
    alert.add(QStringLiteral("No"), Style::Default);
    QSignalSpy dismissed(&alert, &kit::AlertController::dismissed);
    alert.cancel();
    EXPECT_EQ(dismissed.count(), 0);
}

TEST(AlertTextField, startsEmptyWithTheDefaultKeyboard)
{
    Alert alert;
    const kit::AlertTextField* field = alert.addTextField();
    EXPECT_FALSE(field->text().isNull());
    EXPECT_TRUE(field->text().isEmpty());
    EXPECT_EQ(field->inputHints(), static_cast<int>(Qt::ImhNone));
    EXPECT_EQ(alert.textFields().size(), 1);
}

TEST(AlertTextField, asksForAnAddressKeyboardWithoutCapitalsOrCorrection)
{
    Alert alert;
    kit::AlertTextField* const field = alert.addTextField();
    field->setPlaceholder(QStringLiteral("https://"));
    field->setKeyboardType(kit::AlertTextField::Keyboard::URL);
    field->setAutocapitalizationType(kit::AlertTextField::Autocapitalization::None);
    field->setAutocorrectionType(kit::AlertTextField::Autocorrection::No);
    EXPECT_EQ(field->inputHints(),
        static_cast<int>(Qt::ImhUrlCharactersOnly | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText));
    EXPECT_EQ(field->placeholder(), QStringLiteral("https://"));
}

TEST(AlertTextField, keepsItsTextForTheActionThatReadsIt)
{
    Alert alert;
    kit::AlertTextField* const field = alert.addTextField();
    QString read;
    alert.addAction(QStringLiteral("Add"), Style::Default, [&] { read = field->text(); });
    QSignalSpy changed(field, &kit::AlertTextField::textChanged);
    field->setText(QStringLiteral("http://127.0.0.1/"));
    field->setText(QStringLiteral("http://127.0.0.1/"));
    EXPECT_EQ(changed.count(), 1);
    alert.confirm();
    EXPECT_EQ(read, QStringLiteral("http://127.0.0.1/"));
}

TEST(AlertController, isAnchoredToAllOfItsSourceUnlessToldWhere)
{
    Alert sheet(kit::AlertController::Style::ActionSheet);
    EXPECT_TRUE(sheet.anchor().isEmpty());
    kit::View screen({ 0, 44, 1024, 675 });
    auto* button = new kit::View({ 900, 20, 80, 30 });
    screen.addSubview(button);
    const QSignalSpy changed(&sheet, &kit::AlertController::anchorChanged);
    sheet.setSource(button);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(sheet.sourceView(), button);
    EXPECT_EQ(sheet.anchor(), QRectF(900, 64, 80, 30));
    sheet.setSource(button, [] { return QRectF(10, 0, 20, 30); });
    EXPECT_EQ(sheet.anchor(), QRectF(910, 64, 20, 30));
}

TEST(AlertController, followsItsSourceWhereverItGoes)
{
    TableWorld world({ 100 });
    world.table.setFrame({ 0, 44, 1024, 675 });
    Alert sheet(kit::AlertController::Style::ActionSheet);
    sheet.setSource(&world.table, [&world] { return world.table.rectForRow({ 0, 3 }); });
    QSignalSpy changed(&sheet, &kit::AlertController::anchorChanged);
    EXPECT_EQ(sheet.anchor(), QRectF(0, 224, 1024, 60));
    world.table.setContentOffset(100);
    EXPECT_EQ(sheet.anchor(), QRectF(0, 124, 1024, 60));
    EXPECT_EQ(changed.count(), 1);
    world.table.setFrame({ 0, 44, 800, 500 });
    EXPECT_EQ(sheet.anchor(), QRectF(0, 124, 800, 60));
    EXPECT_GE(changed.count(), 2);
    world.table.setContentOffset(200);
    EXPECT_EQ(sheet.anchor(), QRectF(0, 44, 800, 40)) << "the part that is not scrolled away";
    world.table.setContentOffset(2'000);
    EXPECT_TRUE(sheet.anchor().isEmpty());
}

TEST(AlertController, outlivesItsSource)
{
    Alert sheet(kit::AlertController::Style::ActionSheet);
    {
        kit::View gone({ 0, 0, 100, 100 });
        sheet.setSource(&gone, []() -> QRectF {
            ADD_FAILURE() << "asked of a view that is gone";
            return {};
        });
    }
    EXPECT_TRUE(sheet.anchor().isEmpty());
}

TEST(AlertController, tellsOfEachActionAndEachFieldThatIsAdded)
{
    Alert alert;
    const QSignalSpy changed(&alert, &kit::AlertController::contentChanged);
    alert.add(QStringLiteral("OK"), Style::Default);
    EXPECT_EQ(changed.size(), 1);
    const kit::AlertTextField* const field = alert.addTextField();
    EXPECT_EQ(changed.size(), 2);
    EXPECT_EQ(alert.textFields().size(), 1);
    EXPECT_EQ(alert.textFields().first(), field);
}
