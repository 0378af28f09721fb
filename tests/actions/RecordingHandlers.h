#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// A private desktop in which a program of ours is the handler of chosen URL schemes and records every URL it is given.
class RecordingHandlers
{
public:
    // The directory holds the desktop; where it is seen under the same path, as in a sandbox, the handlers work too.
    explicit RecordingHandlers(const QString& directory);
    ~RecordingHandlers();
    RecordingHandlers(const RecordingHandlers&) = delete;
    RecordingHandlers& operator=(const RecordingHandlers&) = delete;

    void install(const QStringList& schemes);
    // Adds to the environment all that a process needs to live in this desktop and in no other.
    void enter(QProcessEnvironment& environment) const;
    // Waits until so many URLs have arrived in all, and gives them in the order of their arrival.
    QStringList urls(int count);

private:
    QString path(const QString& name) const { return m_directory + u'/' + name; }

    QString m_directory;
    int m_pipe = -1;
    QByteArray m_received;
};
