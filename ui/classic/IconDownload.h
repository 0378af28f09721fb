#pragma once

#include <QByteArray>
#include <QNetworkReply>
#include <QObject>

#include <functional>

// Receives the body of one reply, never more of it than a number of bytes. Owns the reply; deletes itself at the end.
class IconDownload : public QObject
{
    Q_OBJECT

public:
    // Called once with the body; an empty one stands for every failure. A status that tells of an error is none: what
    // counts is the body.
    using Completion = std::function<void(const QByteArray&)>;

    IconDownload(QNetworkReply* reply, qint64 largestBody, Completion completion, QObject* parent);

private:
    void receive();
    void finish();
    void end(const QByteArray& body);

    QNetworkReply* m_reply;
    qint64 m_largestBody;
    Completion m_completion;
    QByteArray m_body;
};
