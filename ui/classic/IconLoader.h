#pragma once

#include "ui/classic/IconCache.h"
#include "ui/kit/view/ImageView.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QThreadPool>

#include <chrono>

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
        // Bytes; a longer body is a failure.
        qint64 largestBody = qint64(4) * 1024 * 1024;
        // Bytes of decoded pixels.
        qsizetype cacheSize = qsizetype(32) * 1024 * 1024;
        // The longest silence of the server.
        std::chrono::milliseconds inactivityTimeout = std::chrono::seconds(60);
    };

    // The manager must outlive the loader's use.
    IconLoader(QNetworkAccessManager& manager, const Limits& limits, QObject* parent = nullptr);
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

    void download(const QUrl& url, const Request& request);
    void decode(const QByteArray& body, const Request& request);
    void show(const kit::Image& image, const Request& request);

    QNetworkAccessManager& m_manager;
    Limits m_limits;
    IconCache m_cache;
    // The last member, so that no decoder is running when the others go.
    QThreadPool m_decoders;
};
