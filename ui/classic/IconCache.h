#pragma once

#include "ui/kit/paint/Image.h"

#include <QCache>
#include <QMutex>
#include <QString>

// Decoded icons, each of one scale alone, by their URL text. Holds as many as fit a number of bytes, with their texts
// and some more for each, and drops the least recently used. Any thread.
class IconCache
{
public:
    explicit IconCache(qsizetype bytes);

    // None when it is not there.
    kit::Image image(const QString& urlString);
    void insert(const QString& urlString, const kit::Image& image);

private:
    QMutex m_mutex;
    QCache<QString, kit::Image> m_images;
};
