#include "ui/kit/paint/Image.h"

#include <QBuffer>
#include <QFile>
#include <QHash>
#include <QImageReader>

#include <array>
#include <atomic>
#include <cmath>
#include <mutex>
#include <utility>

namespace kit {

namespace {

// Left to find out what a file is, Qt would load the plugins of all other formats first.
QImage readPng(const QString& path)
{
    QImageReader reader(path, "png");
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

} // namespace

// The pixels of one picture: up to three files, each read when its scale is first wanted, or one decoded image.
class Image::Source
{
public:
    Source(QString pathStem, RenderingMode mode)
        : m_pathStem(std::move(pathStem))
        , m_mode(mode)
    {
    }
    explicit Source(const QImage& pixels)
        : m_decoded(pixels)
    {
    }

    static bool exists(const QString& pathStem) { return QFile::exists(pathStem + QStringLiteral(".png")); }
    RenderingMode mode() const { return m_mode; }
    quint64 identity() const { return m_identity; }
    QImage pixels(double scale) const { return m_decoded.isNull() ? filePixels(scale) : m_decoded; }
    QSizeF size() const
    {
        const QImage image = pixels(1);
        return QSizeF(image.size()) / image.devicePixelRatio();
    }

private:
    static constexpr int LargestScale = 3;

    QImage filePixels(double scale) const
    {
        const std::scoped_lock lock(m_mutex);
        for (int candidate = std::max(1, static_cast<int>(std::ceil(scale))); candidate <= LargestScale; ++candidate)
            if (QImage image = fileOfScale(candidate); !image.isNull())
                return image;
        for (int candidate = LargestScale; candidate > 0; --candidate)
            if (QImage image = fileOfScale(candidate); !image.isNull())
                return image;
        return {};
    }
    QImage fileOfScale(int scale) const
    {
        QImage& image = m_files.at(static_cast<std::size_t>(scale - 1));
        if (image.isNull()) {
            const QString suffix = scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale);
            image = readPng(m_pathStem + suffix + QStringLiteral(".png"));
            image.convertTo(QImage::Format_ARGB32_Premultiplied);
            image.setDevicePixelRatio(scale);
        }
        return image;
    }

    // Never given twice, unlike an address: what is kept under it cannot be taken for a later picture.
    static quint64 nextIdentity()
    {
        static std::atomic<quint64> last = 0;
        return ++last;
    }

    const quint64 m_identity = nextIdentity();
    QString m_pathStem;
    RenderingMode m_mode = RenderingMode::Original;
    QImage m_decoded;
    mutable std::array<QImage, LargestScale> m_files;
    mutable std::mutex m_mutex;
};

Image Image::load(const QString& folder, const QString& name, RenderingMode mode)
{
    Image image;
    const QString pathStem = folder + name;
    if (!name.isEmpty() && Source::exists(pathStem))
        image.m_source = std::make_shared<const Source>(pathStem, mode);
    return image;
}

namespace {

// Each named image is loaded once: cells ask for theirs on every configuration.
template <typename Load> Image loadOnce(QHash<QString, Image>& loaded, const QString& name, Load load)
{
    static std::mutex mutex;
    const std::scoped_lock lock(mutex);
    auto found = loaded.find(name);
    if (found == loaded.end())
        found = loaded.insert(name, load());
    return *found;
}

} // namespace

Image Image::named(const QString& name)
{
    static QHash<QString, Image> loaded;
    return loadOnce(loaded, name, [&] { return load(QStringLiteral(":/assets/"), name, RenderingMode::Original); });
}

Image Image::systemNamed(const QString& name)
{
    static QHash<QString, Image> loaded;
    return loadOnce(loaded, name, [&] { return load(QStringLiteral(":/symbols/"), name, RenderingMode::Template); });
}

Image Image::glyphNamed(const QString& name)
{
    static QHash<QString, Image> loaded;
    return loadOnce(loaded, name, [&] { return load(QStringLiteral(":/glyphs/"), name, RenderingMode::Template); });
}

namespace {

// Of 16 bits a colour, a picture takes twice the memory of one that is drawn.
void limitDecoding()
{
    constexpr int Mebibytes = 64;
    static std::once_flag isLimited;
    std::call_once(isLimited, [] { QImageReader::setAllocationLimit(Mebibytes); });
}

} // namespace

Image Image::fromData(const QByteArray& data, double scale, int maximumPixels)
{
    constexpr int LargestSide = 4096;
    limitDecoding();
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    // Where a plugin for drawings is installed, a few hundred bytes of one could keep it busy for hours.
    if (const QByteArray format = reader.format(); format.startsWith("svg") || format == "pdf")
        return {};
    const QSize size = reader.size();
    // Decoding costs time and memory by the size, which a few bytes can claim.
    if (!size.isValid() || size.width() > LargestSide || size.height() > LargestSide)
        return {};
    if (size.width() > maximumPixels || size.height() > maximumPixels)
        reader.setScaledSize(size.scaled(maximumPixels, maximumPixels, Qt::KeepAspectRatio).expandedTo({ 1, 1 }));
    QImage pixels = reader.read();
    if (pixels.isNull())
        return {};
    pixels.convertTo(QImage::Format_ARGB32_Premultiplied);
    pixels.setDevicePixelRatio(scale);
    Image image;
    image.m_source = std::make_shared<const Source>(pixels);
    return image;
}

Image Image::resizable(const EdgeInsets& capInsets, ResizingMode mode) const
{
    Image image = *this;
    image.m_capInsets = capInsets;
    image.m_resizingMode = mode;
    image.m_resizable = true;
    return image;
}

QSizeF Image::size() const
{
    return m_source ? m_source->size() : QSizeF(0, 0);
}

Image::RenderingMode Image::renderingMode() const
{
    return m_source ? m_source->mode() : RenderingMode::Original;
}

QImage Image::pixels(double scale) const
{
    return m_source ? m_source->pixels(scale) : QImage();
}

quint64 Image::identity() const
{
    return m_source ? m_source->identity() : 0;
}

} // namespace kit
