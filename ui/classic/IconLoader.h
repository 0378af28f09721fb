#pragma once

#include "ui/classic/IconCache.h"
#include "ui/classic/IconQueue.h"
#include "ui/kit/view/ImageView.h"

#include <QObject>
#include <QPointer>
#include <QThreadPool>

// Shows icons from the network in image views. Lives on the main thread; decodes on threads of its own.
// A failure of any kind leaves the view as it is and is not remembered. A view that was asked to show another icon by
// the time one arrives is not given it, so that a reused row keeps its own. Each load that the cache does not answer
// downloads by itself.
class IconLoader : public QObject
{
    Q_OBJECT

public:
    struct Limits
    {
        // Bytes of decoded pixels and of what is kept with them.
        qsizetype cacheSize = qsizetype(24) * 1024 * 1024;
        IconQueue::Limits queue = {};
    };

    // The transport must outlive the loader's use.
    IconLoader(IconTransport& transport, const Limits& limits, QObject* parent = nullptr);
    ~IconLoader() override;

    // At once when the cache has the icon, otherwise when it has been downloaded, over http or https alone. The icon's
    // pixels are for the scale.
    void load(const QString& urlString, double scale, kit::ImageView& imageView);

Q_SIGNALS:
    // A load that asked the network has ended, with an icon or without.
    void finished(const QString& urlString);

private:
    struct Request
    {
        QString urlString;
        double scale;
        QPointer<kit::ImageView> imageView;
    };

    static bool isWanted(const Request& request);
    void download(const QUrl& url, const Request& request);
    void decode(const QByteArray& body, const Request& request);
    void show(const kit::Image& image, const Request& request);

    IconCache m_cache;
    IconQueue m_queue;
    // The last member, so that no decoder is running when the others go.
    QThreadPool m_decoders;
};
