// Draws the window on one device in every state and compares each picture with the golden one.
//
// usage: vesk-gallery SUITE [--renew] [--gtest_filter=...]
//        --renew writes the golden pictures instead, and prints which changed
#include "resources/VeskResources.h"
#include "tests/gallery/Gallery.h"
#include "tests/gallery/GoldenPictures.h"
#include "ui/kit/paint/Animations.h"
#include "ui/kit/paint/TextScale.h"

#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QProcessEnvironment>
#include <QQuickWindow>
#include <QSize>
#include <QStyleHints>
#include <QTemporaryDir>
#include <QTextStream>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr int UsageError = 64;

// What the person at this machine prefers would show in the pictures.
void forgetPreferences()
{
    for (const QString& name : QProcessEnvironment::systemEnvironment().keys())
        if (name.startsWith(QStringLiteral("QT_")) || name.startsWith(QStringLiteral("QSG_"))
            || name.startsWith(QStringLiteral("QML_")))
            qunsetenv(name.toLocal8Bit().constData());
    qunsetenv("FREETYPE_PROPERTIES");
    qputenv("FONTCONFIG_FILE", GALLERY_FONTS);
    qputenv("LC_ALL", "C.UTF-8");
    QLocale::setDefault(QLocale(QLocale::English));
}

// Its screen's pixels are counted before the scale.
QByteArray platformWithScreen(const QSize& screen, const QTemporaryDir& directory)
{
    QFile configuration(directory.filePath(QStringLiteral("screen.json")));
    if (!configuration.open(QIODevice::WriteOnly))
        return {};
    configuration.write(QByteArray(R"({"screens": [{"name": "gallery", "x": 0, "y": 0, "width": %1, "height": %2}]})")
                            .replace("%1", QByteArray::number(screen.width()))
                            .replace("%2", QByteArray::number(screen.height())));
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

// What Qt takes at its start: each suite of tests has a process of its own.
struct Device
{
    const char* suite;
    const char* scale;
    QSize screen;
    double textScale = 1;
};

constexpr QSize Spacious(4096, 4096);
constexpr std::array<Device, 8> devices{ {
    { "AtScale1", "1", Spacious },
    { "AtScale1_25", "1.25", Spacious },
    { "AtScale1_5", "1.5", Spacious },
    { "AtScale2", "2", Spacious },
    { "AtScale3", "3", Spacious },
    // Two points wider at each side than the window, which this platform gives a frame even where it fills the screen.
    { "OnASmallPhone", "1", QSize(320 + 4, 568 + 4) },
    { "OnAPhoneOnItsSide", "1", QSize(844 + 4, 390 + 4) },
    { "WithLargeTexts", "1", Spacious, 2 },
} };

const Device* deviceOf(int argc, char** argv)
{
    const auto isNamed = [&](const Device& device) { return argc > 1 && qstrcmp(argv[1], device.suite) == 0; };
    const auto found = std::find_if(devices.begin(), devices.end(), isNamed);
    return found == devices.end() ? nullptr : found;
}

// All of the suite, unless the caller chose; then the pictures of the others stay unjudged.
void chooseTests(const Device& device, GoldenPictures& pictures)
{
    if (testing::GTEST_FLAG(filter) != "*")
        return;
    testing::GTEST_FLAG(filter) = std::string(device.suite) + ".*";
    testing::AddGlobalTestEnvironment(new WholeRun(pictures));
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const Device* const device = deviceOf(argc, argv);
    if (!device) {
        QTextStream(stderr) << "usage: vesk-gallery SUITE [--renew] [--gtest_filter=...]" << Qt::endl;
        return UsageError;
    }
    const bool renews = argc > 2 && qstrcmp(argv[2], "--renew") == 0;
    const QTemporaryDir scratch;
    forgetPreferences();
    qputenv("QT_SCALE_FACTOR", device->scale);
    qputenv("QT_QPA_PLATFORM", platformWithScreen(device->screen, scratch));
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    kit::Animations::setEnabled(false);
    kit::TextScale::set(device->textScale);
    initialiseResources();

    GoldenPictures pictures(
        QString::fromLatin1(device->suite), renews ? GoldenPictures::Purpose::Renew : GoldenPictures::Purpose::Compare);
    Gallery::setPictures(pictures);
    chooseTests(*device, pictures);
    return RUN_ALL_TESTS();
}
