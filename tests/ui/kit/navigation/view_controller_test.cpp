#include "ui/kit/navigation/ViewController.h"

#include "tests/ui/kit/navigation/LifeRecorder.h"
#include "ui/kit/alert/AlertController.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/table/TableViewController.h"
#include "ui/kit/text/TextScale.h"

#include <QPointer>

#include <gtest/gtest.h>

namespace {

class Presenter : public QObject, public kit::AlertPresenter
{
public:
    void presentAlert(kit::AlertController* alert) override
    {
        alert->setParent(this);
        presented.append(alert);
    }
    QList<kit::AlertController*> presented;
};

kit::AlertController* someAlert()
{
    return new kit::AlertController(
        QStringLiteral("Title"), QStringLiteral("Message"), kit::AlertController::Style::Alert);
}

class EmptyTable : public kit::TableViewController
{
public:
    using kit::TableViewController::TableViewController;
    int numberOfRowsInSection(int /*section*/) const override { return 0; }
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& /*indexPath*/) override { return nullptr; }
};

} // namespace

TEST(ViewController, makesItsViewOnceAndLoadsOnce)
{
    QStringList moments;
    LifeRecorder screen(QStringLiteral("screen"), moments);
    EXPECT_FALSE(screen.isViewLoaded());
    EXPECT_EQ(screen.loadedView(), nullptr);
    kit::View* const view = screen.view();
    EXPECT_EQ(screen.view(), view);
    EXPECT_EQ(view->parent(), &screen);
    EXPECT_EQ(moments, QStringList{ QStringLiteral("screen loaded") });
}

TEST(ViewController, loadsItsViewBeforeItAppears)
{
    QStringList moments;
    LifeRecorder screen(QStringLiteral("screen"), moments);
    screen.beginAppearance();
    EXPECT_EQ(moments, (QStringList{ QStringLiteral("screen loaded"), QStringLiteral("screen will appear") }));
}

TEST(ViewController, goesThroughEachMomentOnce)
{
    QStringList moments;
    LifeRecorder screen(QStringLiteral("screen"), moments);
    screen.endAppearance();
    screen.beginDisappearance();
    screen.endDisappearance();
    EXPECT_TRUE(moments.isEmpty());
    for (int time = 0; time < 2; ++time)
        screen.beginAppearance();
    for (int time = 0; time < 2; ++time)
        screen.endAppearance();
    screen.endDisappearance();
    for (int time = 0; time < 2; ++time)
        screen.beginDisappearance();
    for (int time = 0; time < 2; ++time)
        screen.endDisappearance();
    EXPECT_EQ(moments,
        (QStringList{ QStringLiteral("screen loaded"), QStringLiteral("screen will appear"),
            QStringLiteral("screen did appear"), QStringLiteral("screen will disappear"),
            QStringLiteral("screen did disappear") }));
}

TEST(ViewController, findsThePresenterOfItsAlertsAmongItsParents)
{
    Presenter presenter;
    auto* root = new kit::ViewController;
    auto* stack = new kit::NavigationController(root, &presenter);
    auto* top = new kit::ViewController;
    stack->pushViewController(top, kit::NavigationController::Animation::None);
    kit::AlertController* const alert = someAlert();
    top->present(alert);
    EXPECT_EQ(presenter.presented, QList<kit::AlertController*>{ alert });
}

TEST(ViewController, dropsAnAlertThatNobodyPresents)
{
    kit::ViewController screen;
    const QPointer<kit::AlertController> alert(someAlert());
    screen.present(alert);
    EXPECT_TRUE(alert.isNull());
}

TEST(ViewController, dropsAnAlertOnceItHasLeftItsStack)
{
    Presenter presenter;
    auto* stack = new kit::NavigationController(new kit::ViewController, &presenter);
    auto* top = new kit::ViewController;
    stack->pushViewController(top, kit::NavigationController::Animation::None);
    stack->popViewController(kit::NavigationController::Animation::None);
    top->present(someAlert());
    EXPECT_TRUE(presenter.presented.isEmpty());
}

TEST(TableViewController, isTheDelegateOfItsTable)
{
    EmptyTable screen;
    EXPECT_EQ(std::as_const(screen).tableView(), nullptr);
    EXPECT_EQ(screen.tableView(), screen.view());
    screen.layOut({ 0, 0, 320, 600 });
    EXPECT_EQ(screen.tableView()->contentHeight(), 28);
}

TEST(TableViewController, isAsWideAsItsStackWhenItsViewIsLoaded)
{
    kit::NavigationController stack(new kit::ViewController);
    stack.layOut({ 0, 0, 500, 600 });
    auto* screen = new EmptyTable(&stack);
    EXPECT_EQ(screen->tableView()->frame(), QRectF(0, 0, 500, 0));
}

TEST(TableViewController, loadsNoViewBeforeItIsWanted)
{
    kit::NavigationController stack(new kit::ViewController);
    auto* screen = new EmptyTable(&stack);
    screen->takeTextScale();
    EXPECT_FALSE(screen->isViewLoaded());
    EXPECT_EQ(screen->tableView()->frame(), QRectF());
    EXPECT_FALSE(stack.isViewLoaded());
}

TEST(TableViewController, makesItsTableGrowWithTheTexts)
{
    EmptyTable screen;
    screen.layOut({ 0, 0, 320, 600 });
    kit::TextScale::set(2);
    screen.takeTextScale();
    const double grown = screen.tableView()->contentHeight();
    EXPECT_GT(grown, 28);
    EXPECT_EQ(grown, kit::TextScale::grown(28));
    kit::TextScale::set(1);
}

TEST(TableViewController, namesItsTableByTheTitleThatItHas)
{
    EmptyTable screen;
    screen.setTitle(QStringLiteral("Sources"));
    EXPECT_EQ(screen.tableView()->accessibilityLabel(), QStringLiteral("Sources"));
    screen.setTitle(QStringLiteral("Packages"));
    EXPECT_EQ(screen.tableView()->accessibilityLabel(), QStringLiteral("Packages"));
}

TEST(ViewController, isToldOnceThatItAppears)
{
    QStringList moments;
    LifeRecorder screen(QStringLiteral("screen"), moments);
    screen.beginAppearance();
    screen.endAppearance();
    moments.clear();
    screen.beginAppearance();
    screen.endAppearance();
    EXPECT_TRUE(moments.isEmpty());
}
