#pragma once

#include "tests/gallery/GoldenPictures.h"
#include "tests/ui/screens/ScreenWorld.h"
#include "ui/kit/navigation/TabBarController.h"
#include "ui/screens/shell/AppDelegate.h"

#include <QQuickWindow>
#include <QSize>

#include <memory>
#include <optional>

enum class Tab { Home, Changes, Categories, Search, Manage };

// The program's own window on a fixed catalog, driven into one state and then looked at. No clock and no network takes
// part: nothing is animated, and what is scrolled or pulled is put where it is to be.
class Gallery : public ScreenTest
{
public:
    // The pictures that this process compares with; must outlive the tests.
    static void setPictures(GoldenPictures& pictures) { s_pictures = &pictures; }

protected:
    // For what shows as well in less room.
    static constexpr QSize Low{ 390, 400 };

    Gallery();
    ~Gallery() override;

    // The catalog, before or after the window is open.
    void fillCatalog();
    void fillCatalogExcessively();
    void fillCatalogFromAroundTheWorld();
    void addSources();
    VeskPackagePtr packageNamed(const QString& name) const;
    void queue(const QString& name, QueueAction action, QueueStatus status);
    // One entry of each status, but for one where there is no room for all.
    void queueEveryStatus(std::optional<QueueStatus> but = {});

    // On the tab, in a window of the size; an empty one is what the device gives.
    void open(Tab tab = Tab::Home, const QSize& size = {});
    void open(const QSize& size) { open(Tab::Home, size); }
    kit::TabBarController& tabs() const;
    kit::NavigationController& stack() const;
    kit::ViewController& screen() const { return *stack().topViewController(); }
    kit::TableView& shownTable() const { return *static_cast<kit::TableView*>(screen().view()); }
    QQuickWindow& quickWindow() const { return *delegate->window()->quickWindow(); }
    kit::AlertController& alert() const { return *delegate->window()->presentedAlert(); }
    void select(Tab tab);
    void tap(int section, int row);
    void showPackage(const VeskPackagePtr& package);
    void scrollTo(double offset);
    void scrollToEnd();
    void press(Qt::Key key, int times = 1);
    void pointAt(const QPoint& place);
    // With the other button of the mouse, on the field that has the keyboard.
    void clickRightIntoField(const QString& clipboard);

    // Compares what shows with the golden picture of that name.
    void expectPicture(const QString& name);
    void expectTheWay(const QString& device, const QSize& size);

    std::unique_ptr<AppDelegate> delegate;

private:
    void expectTextsInTheirPlaces();
    void settle();
    void showIcons();
    bool isOpen(const QSize& size) const;

    static GoldenPictures* s_pictures;
};

// The suites, each of them on a device of its own.
class AtScale1 : public Gallery
{
};
class AtScale1_25 : public Gallery
{
};
class AtScale1_5 : public Gallery
{
};
class AtScale2 : public Gallery
{
};
class AtScale3 : public Gallery
{
};
class OnASmallPhone : public Gallery
{
};
class OnAPhoneOnItsSide : public Gallery
{
};
// Twice as large as usual.
class WithLargeTexts : public Gallery
{
};
