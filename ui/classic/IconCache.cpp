#include "ui/classic/IconCache.h"

#include <QMutexLocker>

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
    // What an entry holds besides: the picture's own data and the nodes of the cache.
    constexpr qsizetype entryBytes = 512;
    const qsizetype textBytes = urlString.size() * static_cast<qsizetype>(sizeof(QChar));
    const qsizetype cost = image.pixels(1).sizeInBytes() + textBytes + entryBytes;
    const QMutexLocker locker(&m_mutex);
    m_images.insert(urlString, new kit::Image(image), cost);
}
