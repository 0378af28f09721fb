#pragma once

#include "ui/kit/navigation/BarItems.h"
#include "ui/kit/navigation/SearchController.h"

namespace kit {

// What a screen puts into the navigation bar: its title, a button at each side, a search field. Owns what it is given.
class NavigationItem : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(QString title READ title NOTIFY itemChanged)
    Q_PROPERTY(kit::BarButtonItem* leftItem READ leftBarButtonItem NOTIFY itemChanged)
    Q_PROPERTY(kit::BarButtonItem* rightItem READ rightBarButtonItem NOTIFY itemChanged)
    Q_PROPERTY(kit::SearchController* searchController READ searchController NOTIFY itemChanged)

public:
    using QObject::QObject;

    const QString& title() const { return m_title; }
    void setTitle(const QString& title);
    // Stands beside the back button, it does not replace it.
    BarButtonItem* leftBarButtonItem() const { return m_leftItem; }
    void setLeftBarButtonItem(BarButtonItem* item);
    BarButtonItem* rightBarButtonItem() const { return m_rightItem; }
    void setRightBarButtonItem(BarButtonItem* item);
    SearchController* searchController() const { return m_searchController; }
    void setSearchController(SearchController* controller);
    bool hidesSearchBarWhenScrolling() const { return m_hidesSearchBar; }
    void setHidesSearchBarWhenScrolling(bool hides) { m_hidesSearchBar = hides; }

Q_SIGNALS:
    void itemChanged();

private:
    QString m_title;
    BarButtonItem* m_leftItem = nullptr;
    BarButtonItem* m_rightItem = nullptr;
    SearchController* m_searchController = nullptr;
    bool m_hidesSearchBar = true;
};

} // namespace kit
