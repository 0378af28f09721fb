#pragma once

#include "http/request/Network.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

#include <vector>

// A network that reaches nobody: it serves the files it was given, in a later turn of the main loop, or, while it is
// held, not before it is released. A file it was not given is answered with 404. Used on the main thread.
class ScriptedNetwork : public http::Network
{
public:
    void start(const http::Request& request, std::shared_ptr<http::Receiver> receiver, Done done,
        std::stop_token stop) override;

    void serve(const QString& url, const QByteArray& body) { m_files.insert(url, body); }
    void hold() { m_isHeld = true; }
    void release();
    // In the order in which they were made.
    const QStringList& requestedURLs() const { return m_requestedURLs; }

private:
    struct Exchange
    {
        QString url;
        std::shared_ptr<http::Receiver> receiver;
        Done done;
        std::stop_token stop;
    };

    void answerLater(const Exchange& exchange);
    http::Outcome answer(const Exchange& exchange) const;

    QHash<QString, QByteArray> m_files;
    QStringList m_requestedURLs;
    std::vector<Exchange> m_held;
    bool m_isHeld = false;
    // Answers that have not been given by then go with the network.
    QObject m_mainThread;
};
