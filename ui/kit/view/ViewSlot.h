#pragma once

#include "ui/kit/view/View.h"

#include <QPointer>
#include <QQuickItem>

namespace kit {

// The place of any view in QML: makes the item that the view's kind names and gives it up when the view changes. The
// item is a child that goes with the slot at once, so no item outlives the view it draws.
class ViewSlot : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(kit::View* view READ view WRITE setView NOTIFY viewChanged)

public:
    explicit ViewSlot(QQuickItem* parent = nullptr);

    View* view() const { return m_view; }
    void setView(View* view);

Q_SIGNALS:
    void viewChanged();

protected:
    void componentComplete() override;

private:
    void makeItem();
    void dropItem();

    QPointer<View> m_view;
    QPointer<QQuickItem> m_item;
};

} // namespace kit
