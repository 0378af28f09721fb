#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

// The program on the session bus: what a launcher or a second start asks of it. Lives on the main thread.
class ApplicationService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    // Who else holds the names is left alone.
    ApplicationService(QDBusConnection bus, QString settingsFile);
    ~ApplicationService() override;

    // Takes the names on the bus and answers from then on; does nothing without a bus.
    void announce();

    // The interface. There are no files that the program opens and no actions that it offers: each of the three brings
    // the window to the front. The data says what the desktop knows of the start.
    Q_SLOT void Activate(const QVariantMap& platformData);
    Q_SLOT void Open(const QStringList& uris, const QVariantMap& platformData);
    Q_SLOT void ActivateAction(const QString& name, const QVariantList& parameter, const QVariantMap& platformData);

Q_SIGNALS:
    // The token is that of the Wayland protocol by which a window comes to the front; empty when none was given.
    void activated(const QString& token);

private:
    QStringList names() const;

    QDBusConnection m_bus;
    QString m_settingsFile;
};
