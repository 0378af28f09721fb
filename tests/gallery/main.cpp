// Draws the window on one device in every state and compares each picture with the golden one.
//
// usage: vesk-gallery SUITE [--renew] [--gtest_filter=...]
//        vesk-gallery SUITE --resemble PLATFORM RENDERER --gtest_filter=...
//
//        --renew writes the golden pictures instead, and prints which changed
//        --resemble draws on a platform of Qt by "software" or "opengl"; its pictures need not be the golden ones to
//        the last pixel
#include "resources/VeskResources.h"
#include "tests/gallery/Gallery.h"
#include "tests/gallery/GoldenPictures.h"
#include "tests/support/ui/OffscreenPlatform.h"
#include "ui/kit/paint/Animations.h"
#include "ui/kit/text/TextScale.h"

#include <QGuiApplication>
#include <QLocale>
#include <QProcessEnvironment>
#include <QQuickWindow>
#include <QSize>
#include <QStyleHints>
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

// What the arguments after the suite ask for.
struct Run
{
    GoldenPictures::Purpose purpose = GoldenPictures::Purpose::Compare;
    // Of Qt; empty for the one without a display.
    QByteArray platform;
    QSGRendererInterface::GraphicsApi renderer = QSGRendererInterface::Software;
};

Run runFor(int argc, char** argv)
{
    if (argc == 3 && qstrcmp(argv[2], "--renew") == 0)
        return { GoldenPictures::Purpose::Renew, {}, QSGRendererInterface::Software };
    if (argc < 5 || qstrcmp(argv[2], "--resemble") != 0)
        return {};
    const bool isOpenGL = qstrcmp(argv[4], "opengl") == 0;
    return { GoldenPictures::Purpose::Resemble, argv[3],
        isOpenGL ? QSGRendererInterface::OpenGL : QSGRendererInterface::Software };
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
    const Run run = runFor(argc, argv);
    const QTemporaryDir scratch;
    forgetPreferences();
    qputenv("QT_SCALE_FACTOR", device->scale);
    qputenv("QT_QPA_PLATFORM", run.platform.isEmpty() ? platformWithScreen(device->screen, scratch) : run.platform);
    qputenv("QT_WAYLAND_DISABLE_WINDOWDECORATION", "1");
    QQuickWindow::setGraphicsApi(run.renderer);
    QGuiApplication application(argc, argv);
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    kit::Animations::setEnabled(false);
    kit::TextScale::set(device->textScale);
    initialiseResources();

    GoldenPictures pictures(QString::fromLatin1(device->suite), run.purpose);
    Gallery::setPictures(pictures);
    chooseTests(*device, pictures);
    return RUN_ALL_TESTS();
}
