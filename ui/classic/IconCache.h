#pragma once

#include "Image.h"

#include <QCache>
#include <QMutex>
#include <QString>

// Decoded icons by their URL text. Holds as many as fit a number of bytes and drops the least recently used. Any
// thread.
class IconCache
{
public:
    explicit IconCache(qsizetype bytes);

    // None when it is not there.
    Image image(const QString& urlString);
    void insert(const QString& urlString, const Image& image);

private:
    QMutex m_mutex;
    QCache<QString, Image> m_images;
};
