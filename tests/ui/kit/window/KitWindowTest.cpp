#include "tests/ui/kit/window/KitWindowTest.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMutex>
#include <QQuickItem>
#include <QTest>
#include <QWheelEvent>

#include <vector>

namespace {

QMutex s_mutex;
QStringList s_warnings;

void keepWarnings(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    const QMutexLocker lock(&s_mutex);
    if (type != QtDebugMsg && type != QtInfoMsg)
        s_warnings.append(message);
}

} // namespace

// MARK: the screen

ListScreen::ListScreen(const QString& title)
{
    setTitle(title);
    tabBarItem()->setTitle(title);
    tabBarItem()->setImage(kit::Image::systemNamed(QStringLiteral("house.fill")));
}

QString ListScreen::nameOf(const kit::IndexPath& indexPath)
{
    return QStringLiteral("Row %1.%2").arg(indexPath.section).arg(indexPath.row);
}

void ListScreen::viewDidLoad()
{
    kit::TableView& table = *tableView();
    table.setBackgroundColor(kit::Color::withPatternImage(kit::Image::named(QStringLiteral("AppViewBack"))));
    table.setRowHeight(60);
    table.setTableHeaderView(makeTableHeader());
    auto* control = new kit::RefreshControl;
    control->setValueChanged([this] { ++refreshes; });
    table.setRefreshControl(control);
    auto* reload
        = new kit::BarButtonItem(QStringLiteral("Reload"), kit::BarButtonItem::Style::Plain, [this] { ++reloads; });
    reload->setShortcut(QStringLiteral("F5; Ctrl+R"));
    navigationItem()->setRightBarButtonItem(reload);
    navigationItem()->setLeftBarButtonItem(
        new kit::BarButtonItem(kit::Image::systemNamed(QStringLiteral("info.circle")), QStringLiteral("About"), {}));
}

kit::View* ListScreen::makeTableHeader()
{
    auto* header = new kit::View({ 0, 0, 390, 100 });
    header->setGradient({ kit::Color::white(), kit::Color::black(0.2) });
    auto* label = new kit::Label({ 10, 10, 300, 30 });
    label->setText(QStringLiteral("Welcome"));
    label->setShadow(kit::Label::Shadow::Below, kit::Color::white());
    header->addSubview(label);
    header->addSubview(new kit::ImageView(kit::Image::named(QStringLiteral("Homepage"))));
    return header;
}

kit::View* ListScreen::makeAccessory(int row)
{
    if (row == 0)
        return new kit::Switch;
    auto* button = new kit::Button;
    button->setTitle(QStringLiteral("Press"));
    button->setBackgroundImage(kit::Image::named(QStringLiteral("buttonback")));
    button->setFrame({ 0, 0, 70, 30 });
    button->setAction([this](kit::Button*) { ++buttonPresses; });
    return button;
}

kit::TableViewCell* ListScreen::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    auto* cell
        = tableView()->dequeueCell<kit::TableViewCell>(QStringLiteral("Cell"), kit::TableViewCell::Style::Subtitle);
    cell->textLabel()->setText(nameOf(indexPath));
    cell->detailTextLabel()->setText(QStringLiteral("Detail"));
    cell->imageView()->setImage(kit::Image::named(QStringLiteral("Homepage")));
    cell->setBackgroundView(new kit::ImageView(kit::Image::named(QStringLiteral("cellback1"))));
    cell->setSelectedBackgroundView(new kit::ImageView(kit::Image::named(QStringLiteral("cellback1high"))));
    cell->setAccessoryType(indexPath.row == 2 ? kit::TableViewCell::AccessoryType::Checkmark
                                              : kit::TableViewCell::AccessoryType::DisclosureIndicator);
    cell->setAccessoryView(indexPath.section == 0 && indexPath.row < 2 ? makeAccessory(indexPath.row) : nullptr);
    return cell;
}

kit::View* ListScreen::viewForHeaderInSection(int section)
{
    auto* header = new kit::View({ 0, 0, tableView()->width(), 25 });
    header->setBackgroundColor(kit::Color{ 0.3, 0.4, 0.5, 1, {} });
    auto* label = new kit::Label({ 14, 0, tableView()->width() - 28, 25 });
    label->setText(QStringLiteral("Section %1").arg(section));
    label->setAccessibilityElement(false);
    header->addSubview(label);
    header->setAccessibilityLabel(label->text());
    return header;
}

void ListScreen::didSelectRowAtIndexPath(const kit::IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, kit::TableView::Animation::Animated);
    navigationController()->pushViewController(
        new ListScreen(nameOf(indexPath)), kit::NavigationController::Animation::Animated);
}

void ListScreen::commitEditingStyle(kit::EditingStyle /*style*/, const kit::IndexPath& indexPath)
{
    --firstSectionRows;
    tableView()->deleteRow(indexPath, kit::TableView::Animation::Animated);
}

// MARK: the window

KitWindowTest::KitWindowTest()
    : window(std::make_unique<kit::Window>())
    , tabs(new kit::TabBarController)
    , one(new ListScreen(QStringLiteral("One")))
    , two(new ListScreen(QStringLiteral("Two")))
{
    s_warnings.clear();
    qInstallMessageHandler(keepWarnings);
    auto* search = new kit::SearchController;
    search->searchBar()->setPlaceholder(QStringLiteral("Find"));
    two->navigationItem()->setSearchController(search);
    tabs->setViewControllers({ new kit::NavigationController(one), new kit::NavigationController(two) });
    window->setRootViewController(tabs);
    window->makeKeyAndVisible(QStringLiteral("Kit"));
    quick()->requestActivate();
    EXPECT_TRUE(waitUntil([this] { return quick()->isActive() && quick()->isExposed(); }));
}

KitWindowTest::~KitWindowTest()
{
    window.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    qInstallMessageHandler(nullptr);
    EXPECT_TRUE(s_warnings.isEmpty()) << s_warnings.join(u'\n').toStdString();
}

bool KitWindowTest::waitUntil(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 5'000);
}

QImage KitWindowTest::grabbed()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return quick()->grabWindow();
}

kit::NavigationController* KitWindowTest::stack(int tab) const
{
    return static_cast<kit::NavigationController*>(tabs->viewControllers()[static_cast<std::size_t>(tab)]);
}

kit::AlertController* KitWindowTest::addAlert(kit::AlertController::Style style)
{
    return new kit::AlertController(QStringLiteral("Title"), QStringLiteral("Message"), style);
}

void KitWindowTest::tap(const QPointF& point)
{
    QTest::mouseClick(quick(), Qt::LeftButton, Qt::NoModifier, point.toPoint());
}

void KitWindowTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(quick(), key, modifiers);
}

void KitWindowTest::type(const QString& text)
{
    for (const QChar letter : text)
        QTest::keyClick(quick(), letter.toLatin1());
}

QPointF KitWindowTest::middleOf(const kit::IndexPath& indexPath) const
{
    const QRectF row = one->tableView()->rectForRow(indexPath);
    return { 120, stack(0)->barHeight() + row.center().y() - one->tableView()->contentOffset() };
}

QQuickItem* KitWindowTest::itemDrawnBy(QLatin1String file) const
{
    std::vector<QQuickItem*> open{ quick()->contentItem() };
    while (!open.empty()) {
        QQuickItem* const found = open.back();
        open.pop_back();
        if (QLatin1String(found->metaObject()->className()).startsWith(file))
            return found;
        for (QQuickItem* child : found->childItems())
            open.push_back(child);
    }
    return nullptr;
}

QQuickItem* KitWindowTest::itemWithText(const QString& text) const
{
    std::vector<QQuickItem*> open{ quick()->contentItem() };
    while (!open.empty()) {
        QQuickItem* const item = open.back();
        open.pop_back();
        if (item->inherits("QQuickText") && item->property("text").toString() == text)
            return item;
        for (QQuickItem* child : item->childItems())
            open.push_back(child);
    }
    return nullptr;
}

QAccessibleInterface* KitWindowTest::accessible(const QString& name) const
{
    std::vector<QAccessibleInterface*> open{ QAccessible::queryAccessibleInterface(quick()) };
    while (!open.empty()) {
        QAccessibleInterface* const found = open.back();
        open.pop_back();
        if (found->text(QAccessible::Name) == name && !found->state().invisible)
            return found;
        for (int child = found->childCount() - 1; child >= 0; --child)
            open.push_back(found->child(child));
    }
    return nullptr;
}

void KitWindowTest::turnWheel(const QPointF& place, int points)
{
    QWheelEvent turn(place, quick()->mapToGlobal(place), QPoint(0, points), QPoint(0, points * 8), Qt::NoButton,
        Qt::NoModifier, Qt::ScrollUpdate, false);
    QGuiApplication::sendEvent(quick(), &turn);
}

QString KitWindowTest::focusedItemName() const
{
    QAccessibleInterface* const focused = QAccessible::queryAccessibleInterface(quick()->activeFocusItem());
    return focused ? focused->text(QAccessible::Name) : QString();
}
