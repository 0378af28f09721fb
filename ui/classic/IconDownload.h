#pragma once

#include "ui/classic/IconTransport.h"

#include <QNetworkReply>
#include <QObject>

// Receives the body of one reply, never more of it than a number of bytes. Owns the reply.
class IconDownload : public QObject, public IconTransfer
{
    Q_OBJECT

public:
    IconDownload(QNetworkReply* reply, qint64 largestBody, IconTransport::Completion completion);
    ~IconDownload() override;

private:
    void receive();
    void finish();
    void end(const QByteArray& body);

    QNetworkReply* m_reply;
    qint64 m_largestBody;
    IconTransport::Completion m_completion;
    QByteArray m_body;
};
