#include "actions/ArchiveRequest.h"

#include "actions/ArchiveReception.h"
#include "catalog/index/WebRequest.h"

#include <QEventLoop>
#include <QNetworkReply>

namespace {

constexpr qint64 readBufferSize = 256LL * 1024;

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
    const std::unique_ptr<QNetworkReply> reply(m_manager.get(webRequest(url, m_limits.inactivityTimeout)));
    reply->setReadBufferSize(readBufferSize);
    const auto reception = std::make_unique<ArchiveReception>(*reply, m_limits, directory, loop);
    const auto giveUp = [&] { reception->giveUp(); };
    const std::stop_callback stopped(stop, [&] { QMetaObject::invokeMethod(&loop, giveUp, Qt::QueuedConnection); });
    if (!reply->isFinished())
        loop.exec();
    if (stop.stop_requested())
        return {};
    return { .file = reception->takeFile(), .redirect = redirectOf(*reply) };
}
