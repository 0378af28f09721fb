#include "ViewController.h"

#include "AlertController.h"
#include "LifeRecorder.h"
#include "NavigationController.h"
#include "TableViewController.h"

#include <QPointer>

#include <gtest/gtest.h>

namespace {

class Presenter : public QObject, public AlertPresenter
{
public:
    void presentAlert(AlertController* alert) override
    {
        alert->setParent(this);
        presented.append(alert);
    }
    QList<AlertController*> presented;
};

AlertController* someAlert()
{
    return new AlertController(QStringLiteral("Title"), QStringLiteral("Message"), AlertController::Style::Alert);
}

class EmptyTable : public TableViewController
{
public:
    using TableViewController::TableViewController;
    int numberOfRowsInSection(int /*section*/) const override { return 0; }
    TableViewCell* cellForRowAtIndexPath(const IndexPath& /*indexPath*/) override { return nullptr; }
};

} // namespace

TEST(ViewController, makesItsViewOnceAndLoadsOnce)
{
    QStringList moments;
    LifeRecorder screen(QStringLiteral("screen"), moments);
    EXPECT_FALSE(screen.isViewLoaded());
    EXPECT_EQ(screen.loadedView(), nullptr);
    View* const view = screen.view();
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
    auto* root = new ViewController;
    auto* stack = new NavigationController(root, &presenter);
    auto* top = new ViewController;
    stack->pushViewController(top, NavigationController::Animation::None);
    AlertController* const alert = someAlert();
    top->present(alert);
    EXPECT_EQ(presenter.presented, QList<AlertController*>{ alert });
}

TEST(ViewController, dropsAnAlertThatNobodyPresents)
{
    ViewController screen;
    const QPointer<AlertController> alert(someAlert());
    screen.present(alert);
    EXPECT_TRUE(alert.isNull());
}

TEST(ViewController, dropsAnAlertOnceItHasLeftItsStack)
{
    Presenter presenter;
    auto* stack = new NavigationController(new ViewController, &presenter);
    auto* top = new ViewController;
    stack->pushViewController(top, NavigationController::Animation::None);
    stack->popViewController(NavigationController::Animation::None);
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
    NavigationController stack(new ViewController);
    stack.layOut({ 0, 0, 500, 600 });
    auto* screen = new EmptyTable(&stack);
    EXPECT_EQ(screen->tableView()->width(), 500);
}
