#pragma once

#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/navigation/TabBarController.h"
#include "ui/kit/table/TableViewController.h"
#include "ui/kit/view/Button.h"
#include "ui/kit/view/Switch.h"
#include "ui/kit/window/Window.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

// A table with everything a row can hold; a tap on a row pushes a screen of the row's name.
class ListScreen : public kit::TableViewController
{
public:
    explicit ListScreen(const QString& title);

    int numberOfSections() const override { return 2; }
    int numberOfRowsInSection(int section) const override { return section == 0 ? firstSectionRows : 40; }
    kit::TableViewCell* cellForRowAtIndexPath(const kit::IndexPath& indexPath) override;
    kit::View* viewForHeaderInSection(int section) override;
    double heightForHeaderInSection(int /*section*/) const override { return 25; }
    void didSelectRowAtIndexPath(const kit::IndexPath& indexPath) override;
    bool canEditRowAtIndexPath(const kit::IndexPath& indexPath) const override { return indexPath.section == 0; }
    void commitEditingStyle(kit::EditingStyle style, const kit::IndexPath& indexPath) override;
    void viewDidLoad() override;

    static QString nameOf(const kit::IndexPath& indexPath);

    int firstSectionRows = 5;
    int buttonPresses = 0;
    int reloads = 0;
    int refreshes = 0;

private:
    static kit::View* makeTableHeader();
    kit::View* makeAccessory(int row);
};

// A window of two tabs, "One" and "Two", of which the second has a search field. Any warning that Qt prints fails the
// test.
class KitWindowTest : public testing::Test
{
protected:
    KitWindowTest();
    ~KitWindowTest() override;

    // Lets the window run until the condition holds; false if it never does.
    static bool waitUntil(const std::function<bool()>& condition);
    // Until everything that is to be drawn is.
    QImage grabbed();
    QQuickWindow* quick() const { return window->quickWindow(); }
    kit::NavigationController* stack(int tab) const;
    static kit::AlertController* addAlert(kit::AlertController::Style style);
    void tap(const QPointF& point);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);
    // By so many points of content; upwards, when that is less than none.
    void turnWheel(const QPointF& place, int points);
    // Where in the window the middle of a row of the first tab's list is.
    QPointF middleOf(const kit::IndexPath& indexPath) const;
    QString focusedItemName() const;
    // The first visible or hidden item in the window that a file of that name draws, or null.
    QQuickItem* itemDrawnBy(QLatin1String file) const;
    // The item that draws the text, or null.
    QQuickItem* itemWithText(const QString& text) const;
    // What a screen reader finds under a name in the window, or null.
    QAccessibleInterface* accessible(const QString& name) const;

    std::unique_ptr<kit::Window> window;
    kit::TabBarController* tabs;
    ListScreen* one;
    ListScreen* two;
};
