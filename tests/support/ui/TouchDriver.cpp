#include "tests/support/ui/TouchDriver.h"

#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/navigation/TabBarController.h"
#include "ui/kit/table/TableViewController.h"
#include "ui/kit/view/Label.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

constexpr int DragSteps = 12;
constexpr int StepMilliseconds = 8;

QPointingDevice* sharedFinger()
{
    static QPointingDevice* const finger = QTest::createTouchDevice();
    return finger;
}

QQuickItem* itemDrawing(QQuickItem* item, const kit::View* view)
{
    if (item->property("view").value<kit::View*>() == view && item->width() > 0)
        return item;
    for (QQuickItem* child : item->childItems())
        if (QQuickItem* found = itemDrawing(child, view))
            return found;
    return nullptr;
}

bool anyFlickableMoves(const QQuickItem* item)
{
    if (!item->isVisible())
        return false;
    if (item->inherits("QQuickFlickable") && item->property("moving").toBool())
        return true;
    const auto children = item->childItems();
    return std::any_of(children.begin(), children.end(), anyFlickableMoves);
}

} // namespace

TouchDriver::TouchDriver(kit::Window& window, Hand hand)
    : m_window(window)
    , m_hand(hand)
    , m_finger(sharedFinger())
{
    // Keys go to the window that has the focus.
    quickWindow().requestActivate();
    waitUntil([this] { return quickWindow().isActive(); });
}

// MARK: what shows

kit::TabBarController& TouchDriver::tabs() const
{
    return *qobject_cast<kit::TabBarController*>(m_window.rootViewController());
}

kit::NavigationController& TouchDriver::stack() const
{
    return *qobject_cast<kit::NavigationController*>(tabs().selectedViewController());
}

kit::ViewController& TouchDriver::screen() const
{
    return *stack().topViewController();
}

kit::TableView& TouchDriver::table() const
{
    return *qobject_cast<kit::TableViewController*>(&screen())->tableView();
}

QString TouchDriver::title() const
{
    const QString title = screen().title();
    const auto headings = accessibleItems(QAccessible::Heading);
    const bool isShown = std::any_of(headings.begin(), headings.end(),
        [&](const QQuickItem* item) { return item->property("text").toString() == title; });
    return isShown ? title : QString();
}

QString TouchDriver::headerText(int section) const
{
    const kit::View* header = table().headerView(section);
    if (!header || !itemFor(header))
        return {};
    for (const kit::View* subview : header->subviews())
        if (const auto* label = qobject_cast<const kit::Label*>(subview))
            return label->text();
    return {};
}

QString TouchDriver::rowText(const kit::IndexPath& row) const
{
    const kit::TableViewCell* cell = table().cellForRow(row);
    return cell && itemFor(cell) ? cell->textLabel()->text() : QString();
}

QString TouchDriver::rowDetail(const kit::IndexPath& row) const
{
    const kit::TableViewCell* cell = table().cellForRow(row);
    return cell && cell->detailTextLabel() && itemFor(cell) ? cell->detailTextLabel()->text() : QString();
}

kit::IndexPath TouchDriver::rowWithText(int section, const QString& text) const
{
    for (const kit::IndexPath& row : table().indexPathsForVisibleRows())
        if (row.section == section && table().cellForRow(row)->textLabel()->text() == text)
            return row;
    return { -1, -1 };
}

// One stroke at a time, so that every row passes by.
bool TouchDriver::scrollToRow(int section, const QString& text)
{
    constexpr int MostStrokes = 60;
    if (rowWithText(section, text).row < 0)
        scrollToRow({ 0, 0 });
    for (int stroke = 0; stroke < MostStrokes; ++stroke) {
        const kit::IndexPath row = rowWithText(section, text);
        if (row.row >= 0)
            return scrollToRow(row);
        const double before = table().contentOffset();
        const QPointF low(table().width() / 2, table().frame().bottom() - 60);
        drag(low, low - QPointF(0, std::min(table().height() - 120, 400.0)));
        settle();
        if (table().contentOffset() <= before)
            return false;
    }
    return false;
}

bool TouchDriver::scrollToRow(const kit::IndexPath& row)
{
    constexpr int MostStrokes = 60;
    for (int stroke = 0; stroke < MostStrokes; ++stroke) {
        const QRectF rect = table().rectForRow(row);
        if (rect.isEmpty())
            return false;
        const double top = table().contentOffset() + table().layout().headerHeight(row.section);
        const double bottom = table().contentOffset() + table().height();
        if (rect.top() >= top - 0.5 && rect.bottom() <= bottom + 0.5)
            return true;
        const double missing = rect.top() < top ? rect.top() - top - 20 : rect.bottom() - bottom + 20;
        const double stretch = std::clamp(missing, -table().height() + 160, table().height() - 160);
        const QPointF middle = table().frame().center();
        // The stroke's first points are spent on being told from a tap.
        const double threshold = stretch > 0 ? 12 : -12;
        drag(middle + QPointF(0, stretch / 2), middle - QPointF(0, stretch / 2 + threshold));
        settle();
    }
    return false;
}

// MARK: finding

bool TouchDriver::isOnScreen(const QQuickItem& item) const
{
    const QRectF shown(0, 0, quickWindow().width(), quickWindow().height());
    return item.isVisible() && item.mapRectToScene(QRectF(0, 0, item.width(), item.height())).intersects(shown);
}

QQuickItem* TouchDriver::itemFor(const kit::View* view) const
{
    QQuickItem* item = view ? itemDrawing(quickWindow().contentItem(), view) : nullptr;
    return item && isOnScreen(*item) ? item : nullptr;
}

void TouchDriver::collectAccessible(
    QAccessibleInterface* parent, QAccessible::Role role, std::vector<QQuickItem*>& found) const
{
    for (int index = 0; index < parent->childCount(); ++index) {
        QAccessibleInterface* const child = parent->child(index);
        if (!child)
            continue;
        auto* const item = qobject_cast<QQuickItem*>(child->object());
        if (item && child->role() == role && isOnScreen(*item))
            found.push_back(item);
        collectAccessible(child, role, found);
    }
}

std::vector<QQuickItem*> TouchDriver::accessibleItems(QAccessible::Role role) const
{
    std::vector<QQuickItem*> found;
    if (QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&quickWindow()))
        collectAccessible(root, role, found);
    return found;
}

namespace {

QQuickItem* named(
    const std::vector<QQuickItem*>& items, const QString& name, const std::function<bool(QQuickItem&)>& fits)
{
    for (QQuickItem* item : items)
        if (QAccessible::queryAccessibleInterface(item)->text(QAccessible::Name) == name && fits(*item))
            return item;
    return nullptr;
}

bool isInDialog(const QQuickItem* item)
{
    for (QQuickItem* parent = item->parentItem(); parent; parent = parent->parentItem())
        if (QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(parent))
            if (interface->role() == QAccessible::Dialog)
                return true;
    return false;
}

} // namespace

QQuickItem* TouchDriver::find(QAccessible::Role role, const QString& name) const
{
    return named(accessibleItems(role), name, [](QQuickItem&) { return true; });
}

QQuickItem* TouchDriver::barButton(const QString& name) const
{
    const double barBottom = stack().barHeight();
    return named(accessibleItems(QAccessible::Button), name,
        [&](QQuickItem& item) { return centre(item).y() < barBottom && !isInDialog(&item); });
}

QQuickItem* TouchDriver::tabButton(const QString& name) const
{
    return find(QAccessible::PageTab, name);
}

QQuickItem* TouchDriver::alertButton(const QString& name) const
{
    return named(accessibleItems(QAccessible::Button), name, [](QQuickItem& item) { return isInDialog(&item); });
}

QPointF TouchDriver::centre(const QQuickItem& item)
{
    return item.mapToScene({ item.width() / 2, item.height() / 2 });
}

QPointF TouchDriver::centreOfRow(const kit::IndexPath& row) const
{
    const QQuickItem* item = itemFor(table().cellForRow(row));
    return item ? centre(*item) : QPointF(-1, -1);
}

// MARK: one finger

void TouchDriver::press(const QPointF& point)
{
    m_touched = point;
    if (m_hand == Hand::Mouse)
        QTest::mousePress(&quickWindow(), Qt::LeftButton, {}, point.toPoint());
    else
        QTest::touchEvent(&quickWindow(), m_finger).press(0, point.toPoint());
}

void TouchDriver::moveTo(const QPointF& point)
{
    m_touched = point;
    if (m_hand == Hand::Mouse)
        QTest::mouseMove(&quickWindow(), point.toPoint());
    else
        QTest::touchEvent(&quickWindow(), m_finger).move(0, point.toPoint());
}

void TouchDriver::glideTo(const QPointF& point)
{
    const QPointF from = m_touched;
    for (int step = 1; step <= DragSteps; ++step) {
        QTest::qWait(StepMilliseconds);
        moveTo(from + (point - from) * step / DragSteps);
    }
}

void TouchDriver::release()
{
    if (m_hand == Hand::Mouse)
        QTest::mouseRelease(&quickWindow(), Qt::LeftButton, {}, m_touched.toPoint());
    else
        QTest::touchEvent(&quickWindow(), m_finger).release(0, m_touched.toPoint());
}

void TouchDriver::tap(const QPointF& point)
{
    press(point);
    release();
    QCoreApplication::processEvents();
}

void TouchDriver::drag(const QPointF& from, const QPointF& to, Release release)
{
    press(from);
    glideTo(to);
    // A finger that rests before it lifts gives no momentum.
    for (int step = 0; release == Release::AfterResting && step < DragSteps; ++step) {
        QTest::qWait(StepMilliseconds);
        moveTo(to + QPointF(0, step % 2));
    }
    this->release();
    QCoreApplication::processEvents();
}

bool TouchDriver::tap(QQuickItem* item)
{
    if (!item || !item->isEnabled())
        return false;
    tap(centre(*item));
    return true;
}

bool TouchDriver::tapRow(const kit::IndexPath& row)
{
    return tap(itemFor(table().cellForRow(row)));
}

bool TouchDriver::tapAccessory(const kit::IndexPath& row)
{
    const kit::TableViewCell* cell = table().cellForRow(row);
    return cell && tap(itemFor(cell->accessoryView()));
}

bool TouchDriver::swipeOpen(const kit::IndexPath& row)
{
    const QPointF middle = centreOfRow(row);
    if (middle.x() < 0)
        return false;
    drag(middle + QPointF(60, 0), middle - QPointF(60, 0));
    return waitUntil(
        [&] { return table().openRow()->section() == row.section && table().openRow()->row() == row.row; }, 2000);
}

// MARK: other hands

void TouchDriver::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&quickWindow(), key, modifiers);
    QCoreApplication::processEvents();
}

void TouchDriver::type(const QString& text)
{
    for (const QChar character : text) {
        QTest::sendKeyEvent(QTest::Click, &quickWindow(), Qt::Key_unknown, QString(character), Qt::NoModifier);
        QCoreApplication::processEvents();
    }
}

void TouchDriver::wheel(const QPointF& point, int clicks)
{
    constexpr int AngleOfAClick = 120;
    constexpr int MillisecondsBetweenClicks = 16;
    QWheelEvent event(point, quickWindow().mapToGlobal(point), {}, { 0, -clicks * AngleOfAClick }, Qt::NoButton,
        Qt::NoModifier, Qt::NoScrollPhase, false);
    // What scrolls is told its speed by these times, and takes no click at the time of the one before.
    m_wheelTime += MillisecondsBetweenClicks;
    event.setTimestamp(m_wheelTime);
    QCoreApplication::sendEvent(&quickWindow(), &event);
    QCoreApplication::processEvents();
}

void TouchDriver::click(const QPointF& point)
{
    QTest::mouseClick(&quickWindow(), Qt::LeftButton, Qt::NoModifier, point.toPoint());
    QCoreApplication::processEvents();
}

bool TouchDriver::pressByScreenReader(QQuickItem* item)
{
    QAccessibleInterface* const interface = item ? QAccessible::queryAccessibleInterface(item) : nullptr;
    QAccessibleActionInterface* const actions = interface ? interface->actionInterface() : nullptr;
    if (!actions || !actions->actionNames().contains(QAccessibleActionInterface::pressAction()))
        return false;
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
    return true;
}

// MARK: looking

bool TouchDriver::waitUntil(const std::function<bool()>& condition, int milliseconds)
{
    return QTest::qWaitFor(condition, milliseconds);
}

bool TouchDriver::isMoving() const
{
    return stack().isTransitioning() || anyFlickableMoves(quickWindow().contentItem());
}

bool TouchDriver::settle()
{
    constexpr int StillPictures = 3;
    constexpr int Between = 40;
    QImage before;
    int still = 0;
    return waitUntil([&] {
        QTest::qWait(Between);
        const QImage now = picture();
        still = !isMoving() && now == before ? still + 1 : 0;
        before = now;
        return still >= StillPictures;
    });
}

bool TouchDriver::grab(const QString& path, Moment moment)
{
    if (moment == Moment::Settled && !settle())
        return false;
    return picture().save(path);
}
