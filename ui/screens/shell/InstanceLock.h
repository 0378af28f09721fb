#pragma once

#include "actions/process/FileDescriptor.h"

#include <QString>

// Keeps a second program of the same user from working on the same settings file: a lock on an empty file beside it.
// The system takes the lock back when the process ends, however it ends, so a file that was left behind keeps nobody
// out. Children do not inherit it. Main thread.
class InstanceLock
{
public:
    enum class State {
        Held,
        HeldByAnother,
        // The file cannot be made or locked. Nothing is stored there either, so nothing is lost by going on.
        Impossible,
    };

    // Takes no lock yet. Links to the settings file are followed: what two names lead to is one file.
    explicit InstanceLock(const QString& settingsFile);

    // Answers at once.
    State acquire();
    // The settings file, links followed.
    const QString& settingsFile() const { return m_settingsFile; }

private:
    QString m_settingsFile;
    FileDescriptor m_file;
};
