// A program that asks for the icon at the URL of its first argument, for tests of what happens when a process ends. It
// quits as soon as its standard input ends.
#include "http/Client.h"
#include "ui/classic/ClassicUI.h"

#include <QGuiApplication>
#include <QSocketNotifier>

#include <unistd.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    http::Client network;
    ClassicUI::setIconNetwork(&network);
    VeskPackage package;
    package.setIconURLString(QString::fromLocal8Bit(argv[1]));
    kit::ImageView view;
    ClassicUI::loadIconForPackage(package, view);
    QSocketNotifier inputEnd(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&inputEnd, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    const int code = QGuiApplication::exec();
    ClassicUI::setIconNetwork(nullptr);
    return code;
}
