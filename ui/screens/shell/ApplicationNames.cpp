#include "ui/screens/shell/ApplicationNames.h"

#include <QCryptographicHash>

QString ApplicationNames::service()
{
    return QStringLiteral("org.vesk.Vesk");
}

QString ApplicationNames::serviceOf(const QString& settingsFile)
{
    // A path may hold what a name may not, and an element of a name may not begin with a digit.
    const QByteArray digest = QCryptographicHash::hash(settingsFile.toUtf8(), QCryptographicHash::Sha256).toHex();
    return service() + QStringLiteral(".file_") + QString::fromLatin1(digest.left(32));
}

QString ApplicationNames::objectPath()
{
    return QStringLiteral("/org/vesk/Vesk");
}

QString ApplicationNames::interface()
{
    return QStringLiteral("org.freedesktop.Application");
}
