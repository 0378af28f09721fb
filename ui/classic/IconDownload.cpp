#include "ui/classic/IconDownload.h"

#include <utility>

namespace {

// Errors that were made from the status of a complete answer are numbered in these ranges.
bool isTransportError(QNetworkReply::NetworkError error)
{
    const bool isContentError
        = error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError;
    const bool isServerError
        = error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError;
    return error != QNetworkReply::NoError && !isContentError && !isServerError;
}

} // namespace

IconDownload::IconDownload(QNetworkReply* reply, qint64 largestBody, IconTransport::Completion completion)
    : m_reply(reply)
    , m_largestBody(largestBody)
    , m_completion(std::move(completion))
{
    constexpr qint64 pieceSize = qint64(64) * 1024;
    reply->setReadBufferSize(pieceSize);
    connect(reply, &QNetworkReply::readyRead, this, &IconDownload::receive);
    connect(reply, &QNetworkReply::finished, this, &IconDownload::finish);
}

// The reply may be in the middle of telling something.
IconDownload::~IconDownload()
{
    m_reply->disconnect(this);
    m_reply->deleteLater();
}

void IconDownload::receive()
{
    m_body += m_reply->readAll();
    if (m_body.size() > m_largestBody)
        end({});
}

void IconDownload::finish()
{
    const bool isWhole = !isTransportError(m_reply->error());
    if (isWhole && m_reply->isReadable())
        m_body += m_reply->readAll();
    const bool isGood = isWhole && m_body.size() <= m_largestBody;
    end(isGood ? m_body : QByteArray());
}

// The last step of any: the completion may destroy this.
void IconDownload::end(const QByteArray& body)
{
    m_reply->disconnect(this);
    const IconTransport::Completion completion = std::move(m_completion);
    completion(body);
}
