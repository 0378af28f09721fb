#pragma once

#include <QByteArray>
#include <QHash>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QStringList>

#include <optional>

// An answer that comes when it is told to: 200 with a body, or 404.
class ScriptedReply : public QNetworkReply
{
    Q_OBJECT

public:
    ScriptedReply(QNetworkAccessManager::Operation operation, const QNetworkRequest& request, QObject* parent);

    void answer(const std::optional<QByteArray>& body);
    void abort() override;
    qint64 bytesAvailable() const override { return m_body.size() + QNetworkReply::bytesAvailable(); }

protected:
    qint64 readData(char* data, qint64 maximum) override;

private:
    QByteArray m_body;
};

// A network that reaches nobody: it serves the files it was given, in a later turn of the main loop, or, while it is
// held, not before it is released.
class ScriptedNetwork : public QNetworkAccessManager
{
    Q_OBJECT

public:
    void serve(const QString& url, const QByteArray& body) { m_files.insert(url, body); }
    void hold() { m_isHeld = true; }
    void release();
    // In the order in which they were made.
    const QStringList& requestedURLs() const { return m_requestedURLs; }

protected:
    QNetworkReply* createRequest(Operation operation, const QNetworkRequest& request, QIODevice* outgoing) override;

private:
    void answer(ScriptedReply* reply) const;

    QHash<QString, QByteArray> m_files;
    QStringList m_requestedURLs;
    QList<QPointer<ScriptedReply>> m_heldReplies;
    bool m_isHeld = false;
};
