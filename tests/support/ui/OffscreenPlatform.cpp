#include "tests/support/ui/OffscreenPlatform.h"

#include <QFile>

QByteArray platformWithScreen(const QSize& size, const QTemporaryDir& directory)
{
    QFile configuration(directory.filePath(QStringLiteral("screen.json")));
    if (!configuration.open(QIODevice::WriteOnly))
        return {};
    configuration.write(QByteArray(R"({"screens": [{"name": "test", "x": 0, "y": 0, "width": %1, "height": %2}]})")
                            .replace("%1", QByteArray::number(size.width()))
                            .replace("%2", QByteArray::number(size.height())));
    return "offscreen:configfile=" + configuration.fileName().toLocal8Bit();
}
