#pragma once

#include <QPointer>
#include <QQuickItem>

namespace kit {

// An item whose eventFilter() is asked about all that its window receives, before anything in the window is.
class WindowWatcher : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    using QQuickItem::QQuickItem;

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    QPointer<QQuickWindow> m_watched;
};

} // namespace kit
