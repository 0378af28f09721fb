#pragma once

#include "ui/kit/table/TableView.h"
#include "ui/kit/window/Window.h"

#include <QAccessible>
#include <QPointF>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>

#include <functional>
#include <vector>

namespace kit {
class NavigationController;
}
class QPointingDevice;
namespace kit {
class TabBarController;
}

// A person at the open window: finds what is on screen, touches it, types, and looks at what came of it.
// Places are points of the window. What is not on screen has no item, and touching it answers false and does nothing.
// Lives on the main thread and turns its event loop while it waits; no wait is without an end.
class TouchDriver
{
public:
    enum class Hand { Finger, Mouse };
    // The window must be open and outlive the driver; its root must be a bar of tabs with a stack of screens each. The
    // hand is what presses, moves and releases below.
    explicit TouchDriver(kit::Window& window, Hand hand = Hand::Finger);

    // What shows.
    kit::Window& window() const { return m_window; }
    QQuickWindow& quickWindow() const { return *m_window.quickWindow(); }
    kit::TabBarController& tabs() const;
    kit::NavigationController& stack() const;
    kit::ViewController& screen() const;
    // The top screen's table; every screen here is one.
    kit::TableView& table() const;
    QString title() const;
    // Null when the header, the row or that part of it is not on screen.
    QString headerText(int section) const;
    QString rowText(const kit::IndexPath& row) const;
    QString rowDetail(const kit::IndexPath& row) const;
    // The row among all of the table's, seen or not, that a person finds by its text; scrolls there by touch.
    bool scrollToRow(int section, const QString& text);
    bool scrollToRow(const kit::IndexPath& row);
    kit::IndexPath rowWithText(int section, const QString& text) const;

    // The item that draws the view, or null when none of it is on screen.
    QQuickItem* itemFor(const kit::View* view) const;
    // The visible item that a screen reader meets under that role and name, or null.
    QQuickItem* find(QAccessible::Role role, const QString& name) const;
    QQuickItem* barButton(const QString& name) const;
    QQuickItem* tabButton(const QString& name) const;
    QQuickItem* alertButton(const QString& name) const;
    std::vector<QQuickItem*> accessibleItems(QAccessible::Role role) const;
    static QPointF centre(const QQuickItem& item);
    QPointF centreOfRow(const kit::IndexPath& row) const;

    // One finger, or the mouse with its left button.
    enum class Release { AtOnce, AfterResting };
    void press(const QPointF& point);
    void moveTo(const QPointF& point);
    // Moves the finger that is down, in small steps.
    void glideTo(const QPointF& point);
    void release();
    void tap(const QPointF& point);
    void drag(const QPointF& from, const QPointF& to, Release release = Release::AfterResting);
    void flick(const QPointF& from, const QPointF& to) { drag(from, to, Release::AtOnce); }
    bool tap(QQuickItem* item);
    bool tapRow(const kit::IndexPath& row);
    // The button or switch at a row's right.
    bool tapAccessory(const kit::IndexPath& row);
    bool tapBarButton(const QString& name) { return tap(barButton(name)); }
    bool tapTab(const QString& name) { return tap(tabButton(name)); }
    bool tapAlertButton(const QString& name) { return tap(alertButton(name)); }
    bool swipeOpen(const kit::IndexPath& row);

    // Other hands.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    // Clicks of the wheel; positive ones scroll towards the end.
    void wheel(const QPointF& point, int clicks);
    void click(const QPointF& point);
    // A screen reader's press; false when the item offers none.
    static bool pressByScreenReader(QQuickItem* item);

    // Turns the event loop until the condition holds; false when it never does.
    static bool waitUntil(const std::function<bool()>& condition, int milliseconds = 20000);
    // Waits until nothing moves any more: no screen slides and the picture stays the same for a moment.
    bool settle();
    QImage picture() const { return m_window.quickWindow()->grabWindow(); }
    // Writes what shows, once it has settled, as a PNG file.
    enum class Moment { Settled, Now };
    bool grab(const QString& path, Moment moment = Moment::Settled);

private:
    bool isOnScreen(const QQuickItem& item) const;
    void collectAccessible(QAccessibleInterface* parent, QAccessible::Role role, std::vector<QQuickItem*>& found) const;
    bool isMoving() const;

    kit::Window& m_window;
    Hand m_hand;
    QPointingDevice* m_finger;
    QPointF m_touched;
    quint64 m_wheelTime = 0;
};
