#include "ui/kit/view/ViewSlot.h"

#include <QQmlComponent>
#include <QQmlEngine>

namespace kit {

ViewSlot::ViewSlot(QQuickItem* parent)
    : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
}

void ViewSlot::setView(View* view)
{
    if (m_view == view)
        return;
    m_view = view;
    dropItem();
    if (isComponentComplete())
        makeItem();
    Q_EMIT viewChanged();
}

void ViewSlot::componentComplete()
{
    QQuickItem::componentComplete();
    makeItem();
}

void ViewSlot::makeItem()
{
    if (!m_view)
        return;
    QQmlComponent component(
        qmlEngine(this), QUrl(QStringLiteral("qrc:/qt/qml/ui/kit/%1.qml").arg(m_view->component())));
    QObject* const made = component.createWithInitialProperties(
        { { QStringLiteral("view"), QVariant::fromValue<QObject*>(m_view) } }, qmlContext(this));
    m_item = qobject_cast<QQuickItem*>(made);
    if (!m_item)
        qFatal("A view cannot be drawn: %s", qPrintable(component.errorString()));
    m_item->setParent(this);
    m_item->setParentItem(this);
}

// Later, for it may be the item whose touch this is.
void ViewSlot::dropItem()
{
    if (!m_item)
        return;
    m_item->setVisible(false);
    m_item->deleteLater();
    m_item = nullptr;
}

} // namespace kit
