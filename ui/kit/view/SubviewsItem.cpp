#include "ui/kit/view/SubviewsItem.h"

#include <QQmlEngine>

namespace kit {

void SubviewsItem::setModel(ObjectListModel* model)
{
    m_model = model;
    Q_EMIT modelChanged();
}

void SubviewsItem::componentComplete()
{
    QQuickItem::componentComplete();
    if (!m_model)
        return;
    for (QObject* subview : m_model->objects())
        addSlot(subview);
    connect(m_model, &ObjectListModel::rowsInserted, this, [this](const QModelIndex&, int first, int last) {
        for (int row = first; row <= last; ++row)
            addSlot(m_model->objects().at(row));
    });
    connect(m_model, &ObjectListModel::rowsAboutToBeRemoved, this, [this](const QModelIndex&, int first, int last) {
        for (int row = first; row <= last; ++row)
            removeSlot(m_model->objects().at(row));
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

} // namespace kit
