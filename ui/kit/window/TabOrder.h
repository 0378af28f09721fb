#pragma once

#include <QQuickItem>

#include <vector>

namespace kit {

// Tab goes round the window's controls in the order in which they are seen: from top to bottom and from left to right,
// and through those within another one right after it. Stands anywhere in the window.
class TabOrder : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit TabOrder(QQuickItem* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    // The keyboard is about to go to another control.
    void moving();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    enum class Direction { Forward, Backward };

    void move(Direction direction);
    static std::vector<QQuickItem*> stopsWithin(const QQuickItem& item);
    static std::vector<QQuickItem*> nearestStopsWithin(const QQuickItem& item);

    QPointer<QQuickWindow> m_watched;
};

} // namespace kit
