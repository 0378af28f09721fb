#include "tests/ui/screens/ScriptedNetwork.h"

#include <algorithm>
#include <cstring>

ScriptedReply::ScriptedReply(
    QNetworkAccessManager::Operation operation, const QNetworkRequest& request, QObject* parent)
    : QNetworkReply(parent)
{
    setOperation(operation);
    setRequest(request);
    setUrl(request.url());
    open(QIODevice::ReadOnly);
}

void ScriptedReply::answer(const std::optional<QByteArray>& body)
{
    setAttribute(QNetworkRequest::HttpStatusCodeAttribute, body ? 200 : 404);
    m_body = body.value_or(QByteArray());
    if (!body)
        setError(ContentNotFoundError, QStringLiteral("not there"));
    if (!m_body.isEmpty())
        Q_EMIT readyRead();
    setFinished(true);
    Q_EMIT finished();
}

void ScriptedReply::abort()
{
    m_body.clear();
}

qint64 ScriptedReply::readData(char* data, qint64 maximum)
{
    const qint64 size = std::min(maximum, static_cast<qint64>(m_body.size()));
    std::memcpy(data, m_body.constData(), static_cast<std::size_t>(size));
    m_body.remove(0, size);
    return size;
}

void ScriptedNetwork::release()
{
    m_isHeld = false;
    for (const QPointer<ScriptedReply>& reply : std::exchange(m_heldReplies, {}))
        if (reply)
            answer(reply);
}

QNetworkReply* ScriptedNetwork::createRequest(
    Operation operation, const QNetworkRequest& request, QIODevice* /*outgoing*/)
{
    auto* reply = new ScriptedReply(operation, request, this);
    m_requestedURLs.append(request.url().toString());
    if (m_isHeld)
        m_heldReplies.append(reply);
    else
        QMetaObject::invokeMethod(
            reply, [this, reply] { answer(reply); }, Qt::QueuedConnection);
    return reply;
}

void ScriptedNetwork::answer(ScriptedReply* reply) const
{
    const auto file = m_files.find(reply->url().toString());
    reply->answer(file == m_files.end() ? std::nullopt : std::optional(*file));
}
