#pragma once

#include "catalog/index/DownloadLimits.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QNetworkAccessManager>
#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

class QNetworkReply;
class RepositoryURL;

// One request for one index file, made when it is constructed; lives on the main thread.
// Redirects are followed, to http and https only and never from https to http; nothing comes from or goes to a cache or
// a cookie jar; a server that is silent or all too slow, and an endless body, fail.
class IndexDownload : public QObject
{
    Q_OBJECT

public:
    // None when it failed: an error, any status but 200, an empty body, one that broke off or one beyond the limits.
    using Done = std::function<void(std::optional<QByteArray> body)>;

    // Done is called exactly once, in a later turn of the event loop, unless this is destroyed first.
    IndexDownload(QNetworkAccessManager& network, const RepositoryURL& url, const DownloadLimits& limits, Done done,
        QObject* parent);
    ~IndexDownload() override;

private:
    void ask(const QUrl& url);
    void readAvailable();
    void finish();
    void failIfTooSlow();
    void end(std::optional<QByteArray> body);
    void dropReply();

    QNetworkAccessManager& m_network;
    DownloadLimits m_limits;
    Done m_done;
    QElapsedTimer m_clock;
    QTimer m_patience;
    QNetworkReply* m_reply = nullptr;
    int m_redirects = 0;
    QByteArray m_body;
};
