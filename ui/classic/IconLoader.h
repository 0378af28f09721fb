#pragma once

#include "catalog/work/Workers.h"
#include "http/request/Network.h"
#include "ui/classic/IconCache.h"
#include "ui/kit/view/ImageView.h"

#include <QObject>
#include <QPointer>
#include <QUrl>

#include <deque>
#include <list>
#include <stop_token>

// Shows icons from the network in image views. Lives on the main thread; decodes on a thread of its own.
// A failure of any kind leaves the view as it is and is not remembered. A view that was asked to show another icon by
// the time one arrives is not given it, so that a reused row keeps its own. Each load that the cache does not answer
// downloads by itself, some at once and the others in their order, unless the same view waits for that icon already.
// What no view waits for any more is not asked for, and its download ends when its view was asked to show another icon.
class IconLoader : public QObject
{
    Q_OBJECT

public:
    struct Limits
    {
        // Downloads at once: more than a screen has rows, and few enough that no server can use up the process's files.
        std::size_t mostAtOnce = 16;
        // Bytes of decoded pixels and of what is kept with them.
        qsizetype cacheSize = qsizetype(24) * 1024 * 1024;
        // Of one icon.
        http::Limits download = standardDownload();
    };
    // A minute in all, for whoever trickles keeps others waiting; 4 MiB, for a picture of a row's size is far smaller.
    static http::Limits standardDownload();

    // The network must outlive the loader.
    IconLoader(http::Network& network, const Limits& limits, QObject* parent = nullptr);
    ~IconLoader() override;

    // At once when the cache has the icon, otherwise when it has been downloaded, over http or https alone. The icon's
    // pixels are for the scale. A URL that is none asks for no icon.
    void load(const QString& urlString, double scale, kit::ImageView& imageView);

Q_SIGNALS:
    // A load that asked the network has ended, with an icon or without.
    void finished(const QString& urlString);

private:
    struct Request
    {
        QString urlString;
        QUrl url;
        double scale;
        QPointer<kit::ImageView> imageView;
    };
    struct Download
    {
        Request request;
        std::stop_source stop;
    };
    using Downloads = std::list<Download>;

    void dropLoadsOf(const kit::ImageView& imageView);
    bool isLoadingFor(const kit::ImageView& imageView) const;
    void startWaiting();
    void start(Request request);
    void downloaded(Downloads::iterator download, const QByteArray& body);
    void decode(const QByteArray& body, const Request& request);
    void show(const kit::Image& image, const Request& request);

    http::Network& m_network;
    Limits m_limits;
    IconCache m_cache;
    std::deque<Request> m_waiting;
    Downloads m_downloads;
    // The last member, so that no decoder is running when the others go.
    Workers m_decoder{ 1 };
};
