#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>

#include <chrono>
#include <functional>
#include <optional>

class QNetworkReply;
class RepositoryURL;

// One request for one index file, made when it is constructed; lives on the main thread.
// Redirects are followed, to http and https only and never from https to http; nothing comes from or goes to a cache or
// a cookie jar; a silent server and an endless body fail.
class IndexDownload : public QObject
{
    Q_OBJECT

public:
    struct Bounds
    {
        std::chrono::milliseconds inactivity;
        std::size_t bodySize;
    };
    // None when it failed: an error, any status but 200, an empty body or one beyond the bounds.
    using Done = std::function<void(std::optional<QByteArray> body)>;

    // Done is called exactly once, in a later turn of the event loop, unless this is destroyed first.
    IndexDownload(QNetworkAccessManager& network, const RepositoryURL& url, Bounds bounds, Done done, QObject* parent);
    ~IndexDownload() override;

private:
    void start(QNetworkAccessManager& network, const RepositoryURL& url);
    void readAvailable();
    void finish();
    void dropReply();

    Bounds m_bounds;
    Done m_done;
    QNetworkReply* m_reply = nullptr;
    QByteArray m_body;
};
