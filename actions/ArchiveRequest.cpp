#include "ArchiveRequest.h"

#include "ArchiveReception.h"

#include <QEventLoop>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace {

constexpr qint64 readBufferSize = 256LL * 1024;

QNetworkRequest requestFor(const QUrl& url, const DownloadLimits& limits)
{
    QNetworkRequest request(url);
    request.setRawHeader("User-Agent", "Telesphoreo APT-HTTP/1.0.592");
    // Followed here: after a redirect of its own Qt mixes the headers of the two answers.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    // The manager has no cache, so nothing is ever served from one and no header asks for that.
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setTransferTimeout(static_cast<int>(limits.inactivityTimeout.count()));
    return request;
}

} // namespace

ArchiveRequest::ArchiveRequest(QNetworkAccessManager& manager, const DownloadLimits& limits)
    : m_manager(manager)
    , m_limits(limits)
{
}

std::unique_ptr<PartialFile> ArchiveRequest::fetch(
    const QUrl& url, const PrivateDirectory* directory, const std::stop_token& stop)
{
    Answer answer = ask(url, directory, stop);
    for (int count = 0; answer.redirect.isValid() && count < mostRedirects; ++count)
        answer = ask(answer.redirect, directory, stop);
    return std::move(answer.file);
}

ArchiveRequest::Answer ArchiveRequest::ask(
    const QUrl& url, const PrivateDirectory* directory, const std::stop_token& stop)
{
    QEventLoop loop;
    const std::unique_ptr<QNetworkReply> reply(m_manager.get(requestFor(url, m_limits)));
    reply->setReadBufferSize(readBufferSize);
    const auto reception = std::make_unique<ArchiveReception>(*reply, m_limits, directory, loop);
    const auto giveUp = [&] { reception->giveUp(); };
    const std::stop_callback stopped(stop, [&] { QMetaObject::invokeMethod(&loop, giveUp, Qt::QueuedConnection); });
    if (!reply->isFinished())
        loop.exec();
    if (stop.stop_requested())
        return {};
    return { .file = reception->takeFile(), .redirect = reception->redirect() };
}
