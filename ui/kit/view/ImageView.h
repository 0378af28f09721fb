#pragma once

#include "ui/kit/view/View.h"

namespace kit {

// Shows an image in its frame.
class ImageView : public View
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("views are made in C++")
    Q_PROPERTY(kit::Image image READ image NOTIFY imageChanged)
    Q_PROPERTY(QColor tint READ tint NOTIFY imageChanged)
    Q_PROPERTY(ContentMode contentMode READ contentMode NOTIFY imageChanged)
    Q_PROPERTY(double radius READ radius NOTIFY appearanceChanged)

public:
    enum class ContentMode { ScaleToFill, AspectFit };
    Q_ENUM(ContentMode)

    // As large as the image, at the origin.
    explicit ImageView(const Image& image = {}, QObject* parent = nullptr);

    const Image& image() const { return m_image; }
    void setImage(const Image& image);
    ContentMode contentMode() const { return m_contentMode; }
    void setContentMode(ContentMode mode);
    // The colour a template image is drawn in.
    const Color& tintColor() const { return m_tintColor; }
    void setTintColor(const Color& color);

    bool isLike(const View& other) const override;

    QColor tint() const { return m_tintColor.toQColor(); }
    double radius() const { return clipsToBounds() ? cornerRadius() : 0; }
    QString component() const override { return QStringLiteral("PictureView"); }

Q_SIGNALS:
    void imageChanged();

private:
    Image m_image;
    Color m_tintColor = Color::black();
    ContentMode m_contentMode = ContentMode::ScaleToFill;
};

} // namespace kit
