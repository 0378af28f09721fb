#include "ui/classic/NetworkIconTransport.h"

#include "ui/classic/IconDownload.h"

#include <QNetworkRequest>

#include <utility>

NetworkIconTransport::NetworkIconTransport(QNetworkAccessManager& manager, const Limits& limits)
    : m_manager(manager)
    , m_limits(limits)
{
}

std::unique_ptr<IconTransfer> NetworkIconTransport::start(const QUrl& url, Completion completion)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setTransferTimeout(static_cast<int>(m_limits.inactivityTimeout.count()));
    return std::make_unique<IconDownload>(m_manager.get(request), m_limits.largestBody, std::move(completion));
}
