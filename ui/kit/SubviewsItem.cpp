#include "SubviewsItem.h"

#include <QQmlEngine>

void SubviewsItem::setView(View* view)
{
    if (m_view == view)
        return;
    m_view = view;
    Q_EMIT viewChanged();
}

void SubviewsItem::componentComplete()
{
    QQuickItem::componentComplete();
    if (!m_view)
        return;
    ObjectListModel* const model = m_view->subviewModel();
    for (QObject* subview : model->objects())
        addSlot(subview);
    connect(model, &ObjectListModel::rowsInserted, this, [this, model](const QModelIndex&, int first, int last) {
        for (int row = first; row <= last; ++row)
            addSlot(model->objects().at(row));
    });
    connect(model, &ObjectListModel::rowsAboutToBeRemoved, this, [this, model](const QModelIndex&, int first, int last) {
        for (int row = first; row <= last; ++row)
            removeSlot(model->objects().at(row));
    });
}

void SubviewsItem::addSlot(QObject* subview)
{
    auto* const slot = new ViewSlot(this);
    QQmlEngine::setContextForObject(slot, qmlContext(this));
    slot->setView(qobject_cast<View*>(subview));
    m_slots[subview] = slot;
}

void SubviewsItem::removeSlot(QObject* subview)
{
    const auto found = m_slots.find(subview);
    if (found == m_slots.end())
        return;
    found->second->setView(nullptr);
    found->second->deleteLater();
    m_slots.erase(found);
}
