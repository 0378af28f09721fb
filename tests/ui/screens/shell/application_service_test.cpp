#include "ui/screens/shell/ApplicationService.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

TEST(ApplicationService, bringsTheWindowToTheFrontWhateverItIsAskedFor)
{
    const QDBusConnection noBus
        = QDBusConnection::connectToBus(QStringLiteral("unix:path=/none"), QStringLiteral("no bus"));
    ApplicationService service(noBus, QStringLiteral("/none/defaults.json"));
    const QSignalSpy activated(&service, &ApplicationService::activated);
    const QVariantMap data{ { QStringLiteral("activation-token"), QStringLiteral("token") } };
    service.Activate({});
    service.Activate(data);
    service.Open({ QStringLiteral("file:///one") }, data);
    service.ActivateAction(QStringLiteral("action"), {}, data);
    const QVariantList without{ QString() };
    const QVariantList with{ QStringLiteral("token") };
    EXPECT_EQ(activated, (QList<QVariantList>{ without, with, with, with }));
}
