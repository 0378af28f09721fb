#pragma once

#include <QImage>
#include <QQuickItem>

namespace kit {

// An item that is painted once for its exact size in device pixels, and again when that or what it shows changes, so
// that a frame costs a copy of pixels and nothing else. A hidden one is painted when it is next seen, and a very large
// one smaller and stretched, for its pixels would take all memory.
class PixelItem : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit PixelItem(QQuickItem* parent = nullptr);

protected:
    // The pixels for that size, which is not empty; a null image draws nothing. On the thread that renders.
    virtual QImage painted(const QSize& pixelSize, double scale) const = 0;

    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) final;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    // What it shows changed while it was hidden.
    bool m_isOverdue = false;
};

} // namespace kit
