#include "ui/screens/manage/QueueViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicUI.h"

#include <QHostAddress>
#include <QTcpServer>

#include <limits>

namespace {

const kit::Color Red{ 175 / 255.0, 40 / 255.0, 35 / 255.0, 1, {} };

QString withBullet(const char* left, const char* right)
{
    return QString::fromLatin1(left) + QStringLiteral("  \u2022  ") + QString::fromLatin1(right);
}

// A root of which nothing can be fetched: nobody listens on its port.
QString unreachableRoot()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort());
}

class QueueScreen : public ScreenTest
{
protected:
    QueueViewController* show() { return ScreenTest::show(new QueueViewController(*installer)); }
    QueueEntryPtr enqueue(const QString& name, qint64 action = QueueActionInstall, qint64 status = QueueStatusQueued)
    {
        installer->enqueuePackage(addPackage(name), action);
        installer->queue().back()->setStatus(status);
        return installer->queue().back();
    }
    static void pressInstall(QueueViewController* screen) { screen->navigationItem()->rightBarButtonItem()->press(); }
    static void pressClear(QueueViewController* screen) { screen->navigationItem()->leftBarButtonItem()->press(); }
};

// Tells of the tasks that are posted to an object, before each.
class TaskWatcher : public QObject
{
public:
    TaskWatcher(QObject* receiver, std::function<void()> told)
        : m_told(std::move(told))
    {
        receiver->installEventFilter(this);
    }
    bool eventFilter(QObject* /*receiver*/, QEvent* event) override
    {
        if (event->type() == QEvent::MetaCall)
            m_told();
        return false;
    }

private:
    std::function<void()> m_told;
};

} // namespace

TEST_F(QueueScreen, hasAClearButtonAndAnEmphasisedInstallButton)
{
    auto* screen = show();
    EXPECT_EQ(screen->title(), QStringLiteral("Queue"));
    const kit::BarButtonItem* clear = screen->navigationItem()->leftBarButtonItem();
    ASSERT_NE(clear, nullptr);
    EXPECT_EQ(clear->title(), QStringLiteral("Clear"));
    EXPECT_EQ(clear->style(), kit::BarButtonItem::Style::Plain);
    const kit::BarButtonItem* install = screen->navigationItem()->rightBarButtonItem();
    ASSERT_NE(install, nullptr);
    EXPECT_EQ(install->title(), QStringLiteral("Install"));
    EXPECT_EQ(install->style(), kit::BarButtonItem::Style::Done);
    EXPECT_EQ(table()->backgroundColor(), ClassicUI::veskBackgroundColor());
    EXPECT_EQ(table()->layout().sectionCount(), 1);
    EXPECT_EQ(table()->layout().headerHeight(0), 25);
    EXPECT_EQ(headerText(0), QStringLiteral("QUEUED CHANGES"));
}

TEST_F(QueueScreen, showsOneCentredRowThatCannotBeSwipedWhenTheQueueIsEmpty)
{
    show();
    EXPECT_EQ(table()->layout().rowCount(0), 1);
    EXPECT_EQ(text(0, 0), QStringLiteral("Nothing queued"));
    EXPECT_EQ(cell(0, 0)->reuseIdentifier(), QStringLiteral("EmptyCell"));
    EXPECT_EQ(cell(0, 0)->style(), kit::TableViewCell::Style::Default);
    EXPECT_EQ(cell(0, 0)->textLabel()->textAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(cell(0, 0)->accessoryType(), kit::TableViewCell::AccessoryType::None);
    EXPECT_FALSE(table()->openRow()->canDelete(0, 0));
}

TEST_F(QueueScreen, showsAnEntrysNameActionAndStatus)
{
    enqueue(QStringLiteral("One"), QueueActionInstall);
    enqueue(QStringLiteral("Two"), QueueActionUninstall, QueueStatusDownloading);
    enqueue(QStringLiteral("Three"), QueueActionUpgrade, QueueStatusComplete);
    show();
    EXPECT_EQ(texts(0), QStringList({ QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three") }));
    EXPECT_EQ(detail(0, 0), withBullet("Install", "In Queue"));
    EXPECT_EQ(detail(0, 1), withBullet("Uninstall", "Downloading"));
    EXPECT_EQ(detail(0, 2), withBullet("Upgrade", "Complete"));
    EXPECT_EQ(cell(0, 2)->detailTextLabel()->textColor(), ClassicUI::veskBlueColor());
    EXPECT_EQ(cell(0, 0)->reuseIdentifier(), QStringLiteral("QueueCell"));
    EXPECT_EQ(cell(0, 0)->style(), kit::TableViewCell::Style::Value1);
    EXPECT_EQ(cell(0, 0)->accessoryType(), kit::TableViewCell::AccessoryType::None);
    const auto background
        = [this](int row) { return qobject_cast<kit::ImageView*>(cell(0, row)->backgroundView())->image(); };
    EXPECT_EQ(background(1), ClassicUI::stretchableAsset(QStringLiteral("cellback2"), { 0, 12, 0, 12 }));
    EXPECT_EQ(background(2), ClassicUI::stretchableAsset(QStringLiteral("cellback1"), { 0, 12, 0, 12 }));
}

TEST_F(QueueScreen, callsEveryUnknownActionAnUninstall)
{
    enqueue(QStringLiteral("One"), 3);
    enqueue(QStringLiteral("Two"), -1);
    show();
    EXPECT_EQ(detail(0, 0), withBullet("Uninstall", "In Queue"));
    EXPECT_EQ(detail(0, 1), withBullet("Uninstall", "In Queue"));
}

TEST_F(QueueScreen, hasATextForEachStatusAndUnknownForAllOthers)
{
    EXPECT_EQ(QueueViewController::statusString(0), QStringLiteral("In Queue"));
    EXPECT_EQ(QueueViewController::statusString(1), QStringLiteral("Downloading"));
    EXPECT_EQ(QueueViewController::statusString(2), QStringLiteral("Installing"));
    EXPECT_EQ(QueueViewController::statusString(3), QStringLiteral("Ready"));
    EXPECT_EQ(QueueViewController::statusString(4), QStringLiteral("Complete"));
    EXPECT_EQ(QueueViewController::statusString(5), QStringLiteral("Failed"));
    for (const qint64 status :
        { qint64(6), qint64(-1), std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min() })
        EXPECT_EQ(QueueViewController::statusString(status), QStringLiteral("Unknown"));
}

TEST_F(QueueScreen, coloursTheStatus)
{
    const auto colorOf = [](qint64 status) {
        kit::Label label;
        QueueViewController::applyStatusColor(&label, status);
        return label.textColor();
    };
    EXPECT_EQ(colorOf(2), ClassicUI::veskOrangeColor());
    EXPECT_EQ(colorOf(4), ClassicUI::veskBlueColor());
    EXPECT_EQ(colorOf(5), Red);
    for (const qint64 status : { 0, 1, 3, 6, -1 })
        EXPECT_EQ(colorOf(status), ClassicUI::veskSecondaryTextColor());
}

TEST_F(QueueScreen, givesAReusedCellTheColourOfItsOwnStatus)
{
    enqueue(QStringLiteral("One"), QueueActionInstall, QueueStatusComplete);
    enqueue(QStringLiteral("Two"), QueueActionInstall, QueueStatusFailed);
    show();
    EXPECT_EQ(cell(0, 1)->detailTextLabel()->textColor(), Red);
    installer->queue()[0]->setStatus(QueueStatusReady);
    installer->queue()[1]->setStatus(QueueStatusQueued);
    appearAgain();
    EXPECT_EQ(cell(0, 0)->detailTextLabel()->textColor(), ClassicUI::veskSecondaryTextColor());
    EXPECT_EQ(cell(0, 1)->detailTextLabel()->textColor(), ClassicUI::veskSecondaryTextColor());
}

TEST_F(QueueScreen, leavesATappedRowSelectedAndDoesNothingElse)
{
    const QueueEntryPtr entry = enqueue(QStringLiteral("One"));
    show();
    table()->tapRow(0, 0);
    EXPECT_TRUE(cell(0, 0)->isSelected());
    EXPECT_EQ(stackSize(), 1U);
    EXPECT_TRUE(window.alerts().isEmpty());
    EXPECT_EQ(entry->status(), QueueStatusQueued);
}

TEST_F(QueueScreen, deletesTheSwipedEntryWhateverItsStatus)
{
    enqueue(QStringLiteral("One"));
    enqueue(QStringLiteral("Two"), QueueActionInstall, QueueStatusInstalling);
    enqueue(QStringLiteral("Three"));
    show();
    for (int row = 0; row < 3; ++row)
        EXPECT_TRUE(table()->openRow()->canDelete(0, row));
    table()->openRow()->deleteRow(0, 1);
    EXPECT_EQ(texts(0), QStringList({ QStringLiteral("One"), QStringLiteral("Three") }));
    EXPECT_EQ(installer->queue().size(), 2U);
    table()->openRow()->deleteRow(0, 0);
    table()->openRow()->deleteRow(0, 0);
    EXPECT_TRUE(installer->queue().empty());
    EXPECT_EQ(text(0, 0), QStringLiteral("Nothing queued"));
}

TEST_F(QueueScreen, reloadsTheWholeTableWhenAnEntryIsDeleted)
{
    enqueue(QStringLiteral("One"));
    const QueueEntryPtr second = enqueue(QStringLiteral("Two"));
    auto* screen = show();
    second->setStatus(QueueStatusReady);
    screen->commitEditingStyle(kit::EditingStyle::Delete, { 0, 0 });
    EXPECT_EQ(detail(0, 0), withBullet("Install", "Ready"));
}

TEST_F(QueueScreen, ignoresTheDeletionOfARowThatIsNotThere)
{
    const QueueEntryPtr entry = enqueue(QStringLiteral("One"));
    auto* screen = show();
    entry->setStatus(QueueStatusReady);
    screen->commitEditingStyle(kit::EditingStyle::Delete, { 0, 1 });
    screen->commitEditingStyle(kit::EditingStyle::Delete, { 0, -1 });
    EXPECT_EQ(installer->queue().size(), 1U);
    EXPECT_EQ(detail(0, 0), withBullet("Install", "In Queue")) << "nothing was read anew";
}

TEST_F(QueueScreen, showsWhatWasQueuedElsewhereWhenItAppears)
{
    show();
    enqueue(QStringLiteral("Late"));
    EXPECT_EQ(text(0, 0), QStringLiteral("Nothing queued"));
    appearAgain();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Late")));
}

TEST_F(QueueScreen, clearsEveryEntryWhateverItsStatus)
{
    enqueue(QStringLiteral("One"));
    enqueue(QStringLiteral("Two"), QueueActionInstall, QueueStatusComplete);
    auto* screen = show();
    pressClear(screen);
    EXPECT_TRUE(installer->queue().empty());
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Nothing queued")));
}

TEST_F(QueueScreen, reportsZeroAndZeroForAnEmptyQueue)
{
    auto* screen = show();
    pressInstall(screen);
    EXPECT_TRUE(window.alerts().isEmpty());
    ASSERT_TRUE(waitUntil([&] { return window.alerts().size() == 1; }));
    EXPECT_EQ(lastAlert()->title(), QStringLiteral("Vesk"));
    EXPECT_EQ(lastAlert()->message(), QStringLiteral("0 completed, 0 failed"));
    EXPECT_EQ(lastAlert()->style(), kit::AlertController::Style::Alert);
    ASSERT_EQ(lastAlert()->actions().size(), 1);
    EXPECT_EQ(lastAlert()->actions().first()->title(), QStringLiteral("OK"));
    EXPECT_EQ(lastAlert()->actions().first()->style(), kit::AlertAction::Style::Default);
    EXPECT_TRUE(lastAlert()->textFields().isEmpty());
}

TEST_F(QueueScreen, countsCompletedAndFailedEntriesInItsReport)
{
    enqueue(QStringLiteral("One"), QueueActionInstall, QueueStatusComplete);
    enqueue(QStringLiteral("Two"), QueueActionInstall, QueueStatusComplete);
    enqueue(QStringLiteral("Three"), QueueActionInstall, QueueStatusFailed);
    auto* screen = show();
    pressInstall(screen);
    ASSERT_TRUE(waitUntil([&] { return window.alerts().size() == 1; }));
    EXPECT_EQ(lastAlert()->message(), QStringLiteral("2 completed, 1 failed"));
}

TEST_F(QueueScreen, showsReadyAndCountsNothingAfterARunInWhichEveryDownloadFailed)
{
    manager->repositories().front()->setUrlString(unreachableRoot());
    enqueue(QStringLiteral("One"));
    enqueue(QStringLiteral("Two"), QueueActionUpgrade);
    auto* screen = show();
    pressInstall(screen);
    EXPECT_EQ(detail(0, 0), withBullet("Install", "In Queue"));
    ASSERT_TRUE(waitUntil([&] { return window.alerts().size() == 1; }));
    EXPECT_EQ(lastAlert()->message(), QStringLiteral("0 completed, 0 failed"));
    EXPECT_EQ(detail(0, 0), withBullet("Install", "Ready"));
    EXPECT_EQ(detail(0, 1), withBullet("Upgrade", "Ready"));
    EXPECT_EQ(cell(0, 0)->detailTextLabel()->textColor(), ClassicUI::veskSecondaryTextColor());
    EXPECT_EQ(opener.openedURLs().size(), 2);
}

TEST_F(QueueScreen, doesNotShowTheProgressOfARun)
{
    const QueueEntryPtr entry = enqueue(QStringLiteral("One"));
    show();
    entry->setStatus(QueueStatusDownloading);
    turnLoop();
    EXPECT_EQ(detail(0, 0), withBullet("Install", "In Queue"));
    appearAgain();
    EXPECT_EQ(detail(0, 0), withBullet("Install", "Downloading"));
}

TEST_F(QueueScreen, reportsOnceWhenInstallIsPressedAgainDuringARun)
{
    auto* screen = show();
    pressInstall(screen);
    ASSERT_TRUE(installer->isInstalling());
    pressInstall(screen);
    ASSERT_TRUE(waitUntil([&] { return window.alerts().size() == 1; }));
    turnLoop();
    pressInstall(screen);
    ASSERT_TRUE(waitUntil([&] { return window.alerts().size() == 2; }));
    turnLoop();
    EXPECT_EQ(window.alerts().size(), 2);
}

TEST_F(QueueScreen, emptiesAtOnceWhenItIsClearedDuringARunWhichStillReports)
{
    manager->repositories().front()->setUrlString(unreachableRoot());
    const QueueEntryPtr entry = enqueue(QStringLiteral("One"));
    auto* screen = show();
    pressInstall(screen);
    ASSERT_TRUE(installer->isInstalling());
    pressClear(screen);
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Nothing queued")));
    ASSERT_TRUE(waitUntil([&] { return window.alerts().size() == 1; }));
    EXPECT_EQ(entry->status(), QueueStatusReady);
    EXPECT_EQ(lastAlert()->message(), QStringLiteral("0 completed, 0 failed"));
}

TEST_F(QueueScreen, mayBeGoneWhenTheRunEnds)
{
    pressInstall(show());
    dismissScreen();
    ASSERT_TRUE(waitUntil([&] { return !installer->isInstalling(); }));
    turnLoop();
    EXPECT_TRUE(window.alerts().isEmpty());
}

// The run is over for everybody before its report comes.
TEST_F(QueueScreen, reportsInATurnOfItsOwnAfterTheRunsCompletion)
{
    auto* screen = show();
    bool hasTurnOfItsOwn = false;
    TaskWatcher watcher(screen, [&] { hasTurnOfItsOwn = !installer->isInstalling() && window.alerts().isEmpty(); });
    pressInstall(screen);
    ASSERT_TRUE(waitUntil([&] { return window.alerts().size() == 1; }));
    EXPECT_TRUE(hasTurnOfItsOwn);
}
