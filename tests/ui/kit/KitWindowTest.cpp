#include "KitWindowTest.h"

#include <QCoreApplication>
#include <QMutex>
#include <QQuickItem>
#include <QTest>

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
    tabBarItem()->setImage(Image::systemNamed(QStringLiteral("house.fill")));
}

QString ListScreen::nameOf(const IndexPath& indexPath)
{
    return QStringLiteral("Row %1.%2").arg(indexPath.section).arg(indexPath.row);
}

void ListScreen::viewDidLoad()
{
    TableView& table = *tableView();
    table.setBackgroundColor(Color::withPatternImage(Image::named(QStringLiteral("AppViewBack"))));
    table.setRowHeight(60);
    table.setTableHeaderView(makeTableHeader());
    auto* control = new RefreshControl;
    control->setValueChanged([this] { ++refreshes; });
    table.setRefreshControl(control);
    auto* reload = new BarButtonItem(QStringLiteral("Reload"), BarButtonItem::Style::Plain, [this] { ++reloads; });
    reload->setShortcut(QStringLiteral("F5"));
    navigationItem()->setRightBarButtonItem(reload);
    navigationItem()->setLeftBarButtonItem(
        new BarButtonItem(Image::systemNamed(QStringLiteral("info.circle")), QStringLiteral("About"), {}));
}

View* ListScreen::makeTableHeader()
{
    auto* header = new View({ 0, 0, 390, 100 });
    header->setGradient({ Color::white(), Color::black(0.2) });
    auto* label = new Label({ 10, 10, 300, 30 });
    label->setText(QStringLiteral("Welcome"));
    label->setShadow(Label::Shadow::Below, Color::white());
    header->addSubview(label);
    header->addSubview(new ImageView(Image::named(QStringLiteral("Homepage"))));
    return header;
}

View* ListScreen::makeAccessory(int row)
{
    if (row == 0)
        return new Switch;
    auto* button = new Button;
    button->setTitle(QStringLiteral("Press"));
    button->setBackgroundImage(Image::named(QStringLiteral("buttonback")));
    button->setFrame({ 0, 0, 70, 30 });
    button->setAction([this](Button*) { ++buttonPresses; });
    return button;
}

TableViewCell* ListScreen::cellForRowAtIndexPath(const IndexPath& indexPath)
{
    auto* cell = tableView()->dequeueCell<TableViewCell>(QStringLiteral("Cell"), TableViewCell::Style::Subtitle);
    cell->textLabel()->setText(nameOf(indexPath));
    cell->detailTextLabel()->setText(QStringLiteral("Detail"));
    cell->imageView()->setImage(Image::named(QStringLiteral("Homepage")));
    cell->setBackgroundView(new ImageView(Image::named(QStringLiteral("cellback1"))));
    cell->setSelectedBackgroundView(new ImageView(Image::named(QStringLiteral("cellback1high"))));
    cell->setAccessoryType(indexPath.row == 2 ? TableViewCell::AccessoryType::Checkmark
                                              : TableViewCell::AccessoryType::DisclosureIndicator);
    cell->setAccessoryView(indexPath.section == 0 && indexPath.row < 2 ? makeAccessory(indexPath.row) : nullptr);
    return cell;
}

View* ListScreen::viewForHeaderInSection(int section)
{
    auto* header = new View({ 0, 0, tableView()->width(), 25 });
    header->setBackgroundColor(Color{ 0.3, 0.4, 0.5, 1, {} });
    auto* label = new Label({ 14, 0, tableView()->width() - 28, 25 });
    label->setText(QStringLiteral("Section %1").arg(section));
    header->addSubview(label);
    header->setAccessibilityLabel(label->text());
    return header;
}

void ListScreen::didSelectRowAtIndexPath(const IndexPath& indexPath)
{
    tableView()->deselectRow(indexPath, TableView::Animation::Animated);
    navigationController()->pushViewController(
        new ListScreen(nameOf(indexPath)), NavigationController::Animation::Animated);
}

void ListScreen::commitEditingStyle(EditingStyle /*style*/, const IndexPath& indexPath)
{
    --firstSectionRows;
    tableView()->deleteRow(indexPath, TableView::Animation::Animated);
}

// MARK: the window

KitWindowTest::KitWindowTest()
    : window(std::make_unique<Window>())
    , tabs(new TabBarController)
    , one(new ListScreen(QStringLiteral("One")))
    , two(new ListScreen(QStringLiteral("Two")))
{
    s_warnings.clear();
    qInstallMessageHandler(keepWarnings);
    auto* search = new SearchController;
    search->searchBar()->setPlaceholder(QStringLiteral("Find"));
    two->navigationItem()->setSearchController(search);
    tabs->setViewControllers({ new NavigationController(one), new NavigationController(two) });
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

NavigationController* KitWindowTest::stack(int tab) const
{
    return static_cast<NavigationController*>(tabs->viewControllers()[static_cast<std::size_t>(tab)]);
}

AlertController* KitWindowTest::addAlert(AlertController::Style style)
{
    return new AlertController(QStringLiteral("Title"), QStringLiteral("Message"), style);
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

QPointF KitWindowTest::middleOf(const IndexPath& indexPath) const
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

QString KitWindowTest::focusedItemName() const
{
    QAccessibleInterface* const focused = QAccessible::queryAccessibleInterface(quick()->activeFocusItem());
    return focused ? focused->text(QAccessible::Name) : QString();
}
