// Draws the window at one scale in every state and compares each picture with the golden one.
//
// usage: vesk-gallery --scale SCALE [--renew] [--gtest_filter=...]
//        --renew writes the golden pictures instead, and prints which changed
#include "Animations.h"
#include "Gallery.h"
#include "GoldenPictures.h"
#include "VeskResources.h"

#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QProcessEnvironment>
#include <QQuickWindow>
#include <QStyleHints>
#include <QTemporaryDir>
#include <QTextStream>

#include <gtest/gtest.h>

namespace {

constexpr int UsageError = 64;

// What the person at this machine prefers would show in the pictures.
void forgetPreferences()
{
    for (const QString& name : QProcessEnvironment::systemEnvironment().keys())
        if (name.startsWith(QLatin1String("QT_")) || name.startsWith(QLatin1String("QSG_"))
            || name.startsWith(QLatin1String("QML_")))
            qunsetenv(name.toLocal8Bit().constData());
    qunsetenv("FREETYPE_PROPERTIES");
    qputenv("FONTCONFIG_FILE", GALLERY_FONTS);
    qputenv("LC_ALL", "C.UTF-8");
    QLocale::setDefault(QLocale(QLocale::English));
}

// A screen with room for the largest window; its pixels are counted before the scale.
QByteArray platformWithPinnedScreen(const QTemporaryDir& directory)
{
    QFile configuration(directory.filePath(QStringLiteral("screen.json")));
    if (!configuration.open(QIODevice::WriteOnly))
        return {};
    configuration.write(R"({"screens": [{"name": "gallery", "x": 0, "y": 0, "width": 4096, "height": 4096}]})");
    return "offscreen:configfile=" + configuration.fileName().toLocal8Bit();
}

// The end of a whole run: a golden picture that no state draws any more is an error.
class WholeRun : public testing::Environment
{
public:
    explicit WholeRun(GoldenPictures& pictures)
        : m_pictures(pictures)
    {
    }
    void TearDown() override
    {
        for (const QString& file : m_pictures.leftOver())
            ADD_FAILURE() << "nothing draws the golden picture " << file.toStdString();
    }

private:
    GoldenPictures& m_pictures;
};

struct Request
{
    QByteArray scale;
    GoldenPictures::Purpose purpose = GoldenPictures::Purpose::Compare;
};

Request parse(int argc, char** argv)
{
    Request request;
    for (int index = 1; index < argc; ++index) {
        const QByteArray argument(argv[index]);
        if (argument == "--scale" && index + 1 < argc)
            request.scale = argv[++index];
        else if (argument == "--renew")
            request.purpose = GoldenPictures::Purpose::Renew;
    }
    return request;
}

// Only the pictures of this scale; a narrower choice of the caller's own leaves the others unjudged.
void chooseTests(const Request& request, GoldenPictures& pictures)
{
    if (testing::GTEST_FLAG(filter) != "*")
        return;
    const QByteArray suite = "AtScale" + QByteArray(request.scale).replace('.', '_');
    testing::GTEST_FLAG(filter) = (suite + ".*").toStdString();
    testing::AddGlobalTestEnvironment(new WholeRun(pictures));
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const Request request = parse(argc, argv);
    if (request.scale.toDouble() <= 0) {
        QTextStream(stderr) << "usage: vesk-gallery --scale SCALE [--renew] [--gtest_filter=...]" << Qt::endl;
        return UsageError;
    }
    const QTemporaryDir scratch;
    forgetPreferences();
    qputenv("QT_SCALE_FACTOR", request.scale);
    qputenv("QT_QPA_PLATFORM", platformWithPinnedScreen(scratch));
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    Animations::setEnabled(false);
    initialiseResources();

    GoldenPictures pictures(request.scale.toDouble(), request.purpose);
    Gallery::setPictures(pictures);
    chooseTests(request, pictures);
    return RUN_ALL_TESTS();
}
