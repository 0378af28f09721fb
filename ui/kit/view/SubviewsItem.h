#pragma once

#include "ui/kit/view/ViewSlot.h"

#include <unordered_map>

namespace kit {

// Draws the views of a list, in their order. Not a Repeater: that gives up its items later than the views may go.
class SubviewsItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(kit::ObjectListModel* model READ model WRITE setModel NOTIFY modelChanged)

public:
    using QQuickItem::QQuickItem;

    ObjectListModel* model() const { return m_model; }
    // Set once, when the item is made.
    void setModel(ObjectListModel* model);

Q_SIGNALS:
    void modelChanged();

protected:
    void componentComplete() override;

private:
    void addSlot(QObject* subview);
    void removeSlot(QObject* subview);

    QPointer<ObjectListModel> m_model;
    std::unordered_map<QObject*, ViewSlot*> m_slots;
};

} // namespace kit
