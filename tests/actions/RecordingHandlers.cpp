#include "tests/actions/RecordingHandlers.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int longestWait = 60000;

void write(const QString& name, const QString& text, QFile::Permissions extra = {})
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("%s cannot be written", qPrintable(name));
    file.setPermissions(file.permissions() | extra);
}

} // namespace

// The handlers write into a named pipe, which tells the test of each URL as it comes. A line stays whole: it is shorter
// than what a pipe takes at once.
RecordingHandlers::RecordingHandlers(const QString& directory)
    : m_directory(directory)
{
    QDir().mkpath(path(QStringLiteral("data/applications")));
    QDir().mkpath(path(QStringLiteral("config")));
    const QByteArray pipe = path(QStringLiteral("urls")).toUtf8();
    mkfifo(pipe.constData(), 0600);
    m_pipe = open(pipe.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    write(path(QStringLiteral("record")),
        QStringLiteral("#!/bin/sh\nprintf '%s\\n' \"$*\" >> '%1'\n").arg(QLatin1String(pipe)), QFile::ExeOwner);
}

RecordingHandlers::~RecordingHandlers()
{
    close(m_pipe);
}

void RecordingHandlers::install(const QStringList& schemes)
{
    QString types;
    QString defaults = QStringLiteral("[Default Applications]\n");
    for (const QString& scheme : schemes) {
        types += QStringLiteral("x-scheme-handler/%1;").arg(scheme);
        defaults += QStringLiteral("x-scheme-handler/%1=recorder.desktop\n").arg(scheme);
    }
    write(path(QStringLiteral("data/applications/recorder.desktop")),
        QStringLiteral(
            "[Desktop Entry]\nType=Application\nName=Recorder\nNoDisplay=true\nExec=\"%1\" %u\nMimeType=%2\n")
            .arg(path(QStringLiteral("record")), types));
    write(path(QStringLiteral("config/mimeapps.list")), defaults);
}

void RecordingHandlers::enter(QProcessEnvironment& environment) const
{
    const QString nowhere = path(QStringLiteral("nowhere"));
    environment.insert(QStringLiteral("HOME"), m_directory);
    environment.insert(QStringLiteral("XDG_DATA_HOME"), path(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_DATA_DIRS"), nowhere);
    environment.insert(QStringLiteral("XDG_CONFIG_DIRS"), nowhere);
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("disabled:"));
    environment.remove(QStringLiteral("XDG_CURRENT_DESKTOP"));
}

QStringList RecordingHandlers::urls(int count)
{
    while (m_received.count('\n') < count) {
        pollfd waiting = { m_pipe, POLLIN, 0 };
        if (poll(&waiting, 1, longestWait) <= 0)
            break;
        char piece[4096];
        const ssize_t length = read(m_pipe, piece, sizeof piece);
        if (length > 0)
            m_received.append(piece, length);
    }
    QStringList lines = QString::fromUtf8(m_received).split(u'\n');
    lines.removeLast();
    return lines;
}
