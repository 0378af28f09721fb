#include "ui/screens/shell/ApplicationService.h"

#include "ui/screens/shell/ApplicationNames.h"

#include <QDir>
#include <QFileInfo>

namespace {

// Whether it is the file of a start that was told nothing else, as the desktop's own starts are.
bool isUsual(const QString& settingsFile)
{
    const QFileInfo usual(QDir::homePath() + QStringLiteral("/.config/vesk/defaults.json"));
    const QString directory = QFileInfo(usual.absolutePath()).canonicalFilePath();
    return settingsFile == usual.canonicalFilePath() || settingsFile == directory + QLatin1Char('/') + usual.fileName();
}

} // namespace

ApplicationService::ApplicationService(QDBusConnection bus, QString settingsFile)
    : m_bus(std::move(bus))
    , m_settingsFile(std::move(settingsFile))
{
}

ApplicationService::~ApplicationService()
{
    m_bus.unregisterObject(ApplicationNames::objectPath());
    for (const QString& name : names())
        m_bus.unregisterService(name);
}

// The object comes first: what waits for a name is delivered as soon as that is there.
void ApplicationService::announce()
{
    m_bus.registerObject(ApplicationNames::objectPath(), this, QDBusConnection::ExportAllSlots);
    for (const QString& name : names())
        m_bus.registerService(name);
}

// What the bus itself started has to answer to the name by which it was started.
QStringList ApplicationService::names() const
{
    QStringList names{ ApplicationNames::serviceOf(m_settingsFile) };
    if (isUsual(m_settingsFile) || qEnvironmentVariableIsSet("DBUS_STARTER_ADDRESS"))
        names.append(ApplicationNames::service());
    return names;
}

void ApplicationService::Activate(const QVariantMap& platformData)
{
    Q_EMIT activated(platformData.value(QStringLiteral("activation-token")).toString());
}

void ApplicationService::Open(const QStringList& /*uris*/, const QVariantMap& platformData)
{
    Activate(platformData);
}

void ApplicationService::ActivateAction(
    const QString& /*name*/, const QVariantList& /*parameter*/, const QVariantMap& platformData)
{
    Activate(platformData);
}
