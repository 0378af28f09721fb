#pragma once

#include "tests/support/LoopbackExchange.h"

#include <QObject>
#include <QTcpSocket>

// One client's connection to a LoopbackServer; lives on the server's thread and goes when the client does.
class LoopbackConnection : public QObject
{
    Q_OBJECT

public:
    LoopbackConnection(LoopbackAnswers& answers, QTcpSocket* socket, QObject* parent);

    // Sends a reply held back for this path, if one is.
    void release(const QByteArray& path);

private:
    void readRequests();
    void begin(const LoopbackReply& reply);
    void writeFiller();
    void end();

    LoopbackAnswers& m_answers;
    QTcpSocket* m_socket;
    QByteArray m_received;
    QByteArray m_heldPath;
    LoopbackEnding m_ending = LoopbackEnding::KeepAlive;
    qint64 m_fillerLeft = 0;
    bool m_isReplying = false;
};
