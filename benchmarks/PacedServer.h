#pragma once

#include <QByteArray>

#include <map>
#include <thread>

// A server on 127.0.0.1 that sends at a given rate and no faster, one connection after the other; whatever it was not
// given it answers with 404.
class PacedServer
{
public:
    // Bytes a second; 0 for as fast as it goes. The bodies by their paths.
    PacedServer(std::map<QByteArray, QByteArray> bodies, double rate);
    ~PacedServer();
    PacedServer(const PacedServer&) = delete;
    PacedServer& operator=(const PacedServer&) = delete;

    int port() const { return m_port; }

private:
    void serve();
    void answer(int connection) const;
    void sendPaced(int connection, const QByteArray& bytes) const;

    std::map<QByteArray, QByteArray> m_bodies;
    double m_rate;
    int m_listener = -1;
    int m_port = 0;
    std::thread m_thread;
};
