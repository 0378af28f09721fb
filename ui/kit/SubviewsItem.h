#pragma once

#include "ViewSlot.h"

#include <unordered_map>

// Draws a view's subviews, in their order. Not a Repeater: that gives up its items later than the views may go.
class SubviewsItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(View* view READ view WRITE setView NOTIFY viewChanged)

public:
    using QQuickItem::QQuickItem;

    View* view() const { return m_view; }
    // Set once.
    void setView(View* view);

Q_SIGNALS:
    void viewChanged();

protected:
    void componentComplete() override;

private:
    void addSlot(QObject* subview);
    void removeSlot(QObject* subview);

    QPointer<View> m_view;
    std::unordered_map<QObject*, ViewSlot*> m_slots;
};
