// How what is pressed, and what a pointer stands above, looks; and how often it is pressed.
#include "tests/ui/kit/window/FingerTest.h"

#include <QtMath>

namespace {

class PressLook : public FingerTest
{
protected:
    PressLook() { grabbed(); }

    QQuickItem& itemNamed(const QString& name) const { return *qobject_cast<QQuickItem*>(accessible(name)->object()); }
    static QPoint middleOf(const QQuickItem& item)
    {
        return item.mapToScene({ item.width() / 2, item.height() / 2 }).toPoint();
    }
    // How clearly the texts and pictures of a control are drawn, from 0 to 1; all of them the same.
    static double clearnessOf(const QQuickItem& control)
    {
        double clearness = -1;
        collectClearness(control, 1, clearness);
        return clearness;
    }
    static void collectClearness(const QQuickItem& item, double above, double& clearness)
    {
        const double here = above * item.opacity();
        if (!item.isVisible() || item.inherits("kit::RoundedBox"))
            return;
        if (item.inherits("QQuickText") || item.inherits("kit::ImageItem")) {
            EXPECT_TRUE(clearness < 0 || clearness == here) << "one part is clearer than the other";
            clearness = here;
        }
        for (const QQuickItem* child : item.childItems())
            collectClearness(*child, here, clearness);
    }
    void expectLessClearUnderThePointerAndStillLessPressed(const QString& name)
    {
        const QPoint elsewhere(195, 22);
        const QQuickItem& control = itemNamed(name);
        pointAt(elsewhere);
        EXPECT_EQ(clearnessOf(control), 1) << name.toStdString();
        pointAt(middleOf(control));
        EXPECT_EQ(clearnessOf(control), 0.8) << name.toStdString();
        QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, middleOf(control));
        EXPECT_EQ(clearnessOf(control), 0.5) << name.toStdString();
        pointAt(elsewhere);
        QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, elsewhere);
        pointAt(elsewhere + QPoint(1, 0));
        EXPECT_EQ(clearnessOf(control), 1) << name.toStdString();
    }
};

} // namespace

TEST_F(PressLook, fadesTheControlsOfTheBars)
{
    for (const QString& name : { QStringLiteral("Reload"), QStringLiteral("About"), QStringLiteral("Two") })
        expectLessClearUnderThePointerAndStillLessPressed(name);
}

TEST_F(PressLook, fadesTheWordsBesideAndInTheSearchField)
{
    press(Qt::Key_F, Qt::ControlModifier);
    type(QStringLiteral("vesk"));
    grabbed();
    for (const QString& name : { QStringLiteral("Cancel"), QStringLiteral("Clear text") })
        expectLessClearUnderThePointerAndStillLessPressed(name);
}

TEST_F(PressLook, fadesTheDeleteButtonOfARow)
{
    one->tableView()->openRow()->open(0, 3);
    grabbed();
    expectLessClearUnderThePointerAndStillLessPressed(QStringLiteral("Delete"));
    EXPECT_EQ(one->firstSectionRows, 5);
}

TEST_F(PressLook, fadesABarButtonThatIsDisabledWhateverIsAboveIt)
{
    one->navigationItem()->rightBarButtonItem()->setEnabled(false);
    grabbed();
    const QQuickItem& reload = itemNamed(QStringLiteral("Reload"));
    EXPECT_EQ(clearnessOf(reload), 0.4) << "less than one that is pressed";
    pointAt(middleOf(reload));
    EXPECT_EQ(clearnessOf(reload), 0.4);
}

TEST_F(PressLook, letsWhatStandsOnAButtonShowThroughItsShade)
{
    const QQuickItem& button = *itemDrawnBy(QLatin1String("ButtonView"));
    const QPoint middle = middleOf(button);
    const auto shade = [&]() -> const QQuickItem* {
        for (const QQuickItem* child : button.childItems())
            if (child->inherits("QQuickRectangle") && child->isVisible())
                return child;
        return nullptr;
    };
    EXPECT_EQ(shade(), nullptr);
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, middle);
    ASSERT_NE(shade(), nullptr);
    EXPECT_EQ(shade()->opacity(), 0.6);
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, middle);
}

TEST_F(PressLook, fadesADisabledButtonOfARow)
{
    const QQuickItem& button = *itemDrawnBy(QLatin1String("ButtonView"));
    EXPECT_EQ(button.opacity(), 1);
    static_cast<kit::Button*>(one->tableView()->cellForRow({ 0, 1 })->accessoryView())->setEnabled(false);
    EXPECT_EQ(button.opacity(), 0.5);
}

TEST_F(PressLook, findsAButtonNoFurtherThanItsSides)
{
    const QQuickItem& button = *itemDrawnBy(QLatin1String("ButtonView"));
    const QPointF left = button.mapToScene({ 0, button.height() / 2 });
    touch({ qCeil(left.x()), qRound(left.y()) });
    EXPECT_EQ(one->buttonPresses, 1);
    touch({ qCeil(left.x()) - 1, qRound(left.y()) });
    EXPECT_EQ(one->buttonPresses, 1);
    EXPECT_TRUE(stack(0)->canGoBack()) << "that was the row";
}

TEST_F(PressLook, findsABarButtonAsFarAsTheBarGoes)
{
    touch({ 370, 43 });
    EXPECT_EQ(one->reloads, 1);
    touch({ 370, 44 });
    EXPECT_EQ(one->reloads, 1);
}

TEST_F(PressLook, marksAChoiceOfTheEditMenuAndMoreWhenItIsPressed)
{
    press(Qt::Key_F, Qt::ControlModifier);
    type(QStringLiteral("vesk"));
    grabbed();
    QTest::mouseClick(
        quick(), Qt::RightButton, Qt::NoModifier, quick()->activeFocusItem()->mapToScene({ 8, 8 }).toPoint());
    grabbed();
    const QQuickItem& choice = itemNamed(QStringLiteral("Select All"));
    const QQuickItem* mark = nullptr;
    for (const QQuickItem* part : choice.childItems())
        if (part->inherits("QQuickRectangle"))
            mark = part;
    ASSERT_NE(mark, nullptr);
    EXPECT_FALSE(mark->isVisible());
    pointAt(middleOf(choice));
    ASSERT_TRUE(mark->isVisible());
    EXPECT_EQ(QRectF(mark->x(), mark->y(), mark->width(), mark->height()),
        QRectF(5, 5, choice.width() - 10, choice.height() - 10));
    EXPECT_EQ(mark->opacity(), 0.4) << "the word stays legible";
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, middleOf(choice));
    EXPECT_EQ(mark->opacity(), 1);
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, middleOf(choice));
    EXPECT_FALSE(mark->isVisible());
}

TEST_F(PressLook, marksTheChoiceOfTheEditMenuThatAFingerPresses)
{
    press(Qt::Key_F, Qt::ControlModifier);
    type(QStringLiteral("vesk"));
    QTest::mouseClick(
        quick(), Qt::RightButton, Qt::NoModifier, quick()->activeFocusItem()->mapToScene({ 8, 8 }).toPoint());
    grabbed();
    const QQuickItem& choice = itemNamed(QStringLiteral("Select All"));
    const QQuickItem& mark = *choice.childItems().constFirst();
    ASSERT_TRUE(mark.inherits("QQuickRectangle"));
    begin(middleOf(choice));
    EXPECT_TRUE(mark.isVisible());
    end();
}

TEST_F(PressLook, marksAPanelsButtonUnderThePointerAndFadesThePressedOne)
{
    kit::AlertController* const alert = addAlert(kit::AlertController::Style::Alert);
    alert->addAction(QStringLiteral("Close"), kit::AlertAction::Style::Default);
    one->present(alert);
    grabbed();
    const QQuickItem& button = itemNamed(QStringLiteral("Close"));
    const QQuickItem* face = nullptr;
    for (const QQuickItem* part : button.childItems())
        if (part->inherits("kit::RoundedBox") && part->isVisible())
            face = part;
    ASSERT_NE(face, nullptr);
    const QQuickItem& mark = *face->childItems().constFirst();
    EXPECT_FALSE(mark.isVisible());
    pointAt(middleOf(button));
    EXPECT_TRUE(mark.isVisible());
    EXPECT_EQ(mark.opacity(), 0.4) << "its title stays legible";
    EXPECT_EQ(face->opacity(), 1);
    QTest::mousePress(quick(), Qt::LeftButton, Qt::NoModifier, middleOf(button));
    EXPECT_FALSE(mark.isVisible());
    EXPECT_EQ(face->opacity(), 0.7);
    QTest::mouseRelease(quick(), Qt::LeftButton, Qt::NoModifier, middleOf(button));
}
