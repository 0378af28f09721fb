#include "ui/classic/IconCache.h"

#include <QMutexLocker>

#include <limits>

IconCache::IconCache(qsizetype bytes)
    : m_images(bytes)
{
}

kit::Image IconCache::image(const QString& urlString)
{
    const QMutexLocker locker(&m_mutex);
    const kit::Image* image = m_images.object(urlString);
    return image ? *image : kit::Image();
}

void IconCache::insert(const QString& urlString, const kit::Image& image)
{
    constexpr double largestScale = std::numeric_limits<double>::max();
    const qsizetype cost = image.pixels(largestScale).sizeInBytes();
    const QMutexLocker locker(&m_mutex);
    m_images.insert(urlString, new kit::Image(image), cost);
}
