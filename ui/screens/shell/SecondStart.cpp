#include "ui/screens/shell/SecondStart.h"

#include "ui/screens/shell/ApplicationNames.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QThread>
#include <QVariantMap>

namespace {

// One that has just begun answers as soon as its window stands; one whose window was closed is gone within half a
// second.
constexpr int patience = 4000;
constexpr int patienceWithoutBus = 1000;
constexpr unsigned long pauseBetweenTries = 30;

// What the desktop gave this start to hand on, by its name there and in the environment.
QVariantMap platformData()
{
    QVariantMap data;
    const auto take = [&data](const char* variable, const QString& key) {
        if (qEnvironmentVariableIsSet(variable))
            data.insert(key, qEnvironmentVariable(variable));
    };
    take("DESKTOP_STARTUP_ID", QStringLiteral("desktop-startup-id"));
    take("XDG_ACTIVATION_TOKEN", QStringLiteral("activation-token"));
    return data;
}

// The bus starts nobody: who runs on this file is there already.
bool activate(const QDBusConnection& bus, const QString& service, const QDeadlineTimer& deadline)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, ApplicationNames::objectPath(), ApplicationNames::interface(), QStringLiteral("Activate"));
    message.setAutoStartService(false);
    message << platformData();
    const auto time = static_cast<int>(qMax<qint64>(1, deadline.remainingTime()));
    return bus.call(message, QDBus::Block, time).type() == QDBusMessage::ReplyMessage;
}

} // namespace

SecondStart raiseTheFirst(InstanceLock& lock)
{
    const QString service = ApplicationNames::serviceOf(lock.settingsFile());
    const QDBusConnection bus
        = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("second start"));
    const QDeadlineTimer deadline(bus.isConnected() ? patience : patienceWithoutBus);
    for (;;) {
        if (bus.isConnected() && activate(bus, service, deadline))
            return SecondStart::RaisedTheFirst;
        if (lock.acquire() == InstanceLock::State::Held)
            return SecondStart::TakesItsPlace;
        if (deadline.hasExpired())
            return SecondStart::CannotReachIt;
        QThread::msleep(pauseBetweenTries);
    }
}
