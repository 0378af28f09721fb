#pragma once

#include "ui/kit/paint/Color.h"
#include "ui/kit/paint/Geometry.h"
#include "ui/kit/view/ObjectListModel.h"

#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace kit {

// A rectangle of the interface with its subviews. Frames are points in the superview's coordinates. A view owns its
// subviews; everything here lives on the main thread.
class View : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("views are made in C++")
    Q_PROPERTY(QRectF frame READ frame NOTIFY frameChanged)
    Q_PROPERTY(bool hidden READ isHidden NOTIFY appearanceChanged)
    Q_PROPERTY(bool filled READ isFilled NOTIFY appearanceChanged)
    Q_PROPERTY(QColor fillColor READ fillColor NOTIFY appearanceChanged)
    Q_PROPERTY(kit::Image fillPattern READ fillPattern NOTIFY appearanceChanged)
    Q_PROPERTY(bool hasGradient READ hasGradient NOTIFY appearanceChanged)
    Q_PROPERTY(QColor gradientTop READ gradientTop NOTIFY appearanceChanged)
    Q_PROPERTY(QColor gradientBottom READ gradientBottom NOTIFY appearanceChanged)
    Q_PROPERTY(kit::ObjectListModel* subviewModel READ subviewModel CONSTANT)
    Q_PROPERTY(kit::View* superview READ superview CONSTANT)
    Q_PROPERTY(QString component READ component CONSTANT)
    Q_PROPERTY(bool accessibilityElement READ isAccessibilityElement NOTIFY appearanceChanged)
    Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel NOTIFY appearanceChanged)

public:
    struct Gradient
    {
        Color top;
        Color bottom;

        friend bool operator==(const Gradient&, const Gradient&) = default;
    };

    explicit View(const QRectF& frame = {}, QObject* parent = nullptr);
    ~View() override;

    const QRectF& frame() const { return m_frame; }
    // Lays the view out again when its size changes.
    void setFrame(const QRectF& frame);
    double width() const { return m_frame.width(); }
    double height() const { return m_frame.height(); }
    QRectF bounds() const { return { { 0, 0 }, m_frame.size() }; }
    // The point of the content that stands in the view's upper left corner; another one than 0 where it scrolls.
    virtual QPointF contentOrigin() const { return {}; }

    bool isHidden() const { return m_hidden; }
    void setHidden(bool hidden);
    const Color& backgroundColor() const { return m_backgroundColor; }
    void setBackgroundColor(const Color& color);
    // A vertical gradient behind everything else in the view.
    const std::optional<Gradient>& gradient() const { return m_gradient; }
    void setGradient(const Gradient& gradient);
    double cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(double radius);
    bool clipsToBounds() const { return m_clipsToBounds; }
    void setClipsToBounds(bool clips);
    const QString& accessibilityLabel() const { return m_accessibilityLabel; }
    void setAccessibilityLabel(const QString& label);
    // Whether a screen reader meets the view by itself, or only as part of what it stands in.
    bool isAccessibilityElement() const { return m_accessibilityElement; }
    void setAccessibilityElement(bool element);
    int tag() const { return m_tag; }
    void setTag(int tag) { m_tag = tag; }

    // Takes ownership; the view comes last, above its siblings.
    void addSubview(View* view);
    void removeFromSuperview();
    View* superview() const { return m_superview; }
    const QList<View*>& subviews() const { return m_subviews; }
    // A point of this view in another's coordinates; null stands for the topmost superview.
    QPointF convertPointToView(const QPointF& point, const View* view) const;

    // Whether another view draws and says the same with all that it holds, wherever it stands: one that is like what
    // shows already need not be shown. What a person works is like nothing else, for what it does cannot be compared.
    virtual bool isLike(const View& other) const;

    // Places the subviews; called after the size changed and by setNeedsLayout().
    virtual void layoutSubviews() { }
    void setNeedsLayout() { layoutSubviews(); }

    bool isFilled() const { return hasGradient() || !fillPattern().isNull() || fillColor().alpha() > 0; }
    QColor fillColor() const
    {
        return m_backgroundColor.pattern.isNull() ? m_backgroundColor.toQColor() : QColor(Qt::transparent);
    }
    Image fillPattern() const { return m_backgroundColor.pattern; }
    bool hasGradient() const { return m_gradient.has_value(); }
    QColor gradientTop() const { return m_gradient ? m_gradient->top.toQColor() : QColor(); }
    QColor gradientBottom() const { return m_gradient ? m_gradient->bottom.toQColor() : QColor(); }
    ObjectListModel* subviewModel() { return &m_subviewModel; }
    // The QML file that draws this kind of view, without its ending.
    virtual QString component() const { return QStringLiteral("PlainView"); }

protected:
    // Of the same class and equal in all that views have in common.
    bool hasLikeFrameAndSubviews(const View& other) const;

Q_SIGNALS:
    void frameChanged();
    void contentOriginChanged();
    void appearanceChanged();

private:
    QRectF m_frame;
    Color m_backgroundColor;
    std::optional<Gradient> m_gradient;
    View* m_superview = nullptr;
    QList<View*> m_subviews;
    ObjectListModel m_subviewModel;
    QString m_accessibilityLabel;
    double m_cornerRadius = 0;
    int m_tag = 0;
    bool m_hidden = false;
    bool m_accessibilityElement = true;
    bool m_clipsToBounds = false;
};

} // namespace kit
