#include "ui/kit/window/Window.h"

#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/navigation/TabBarController.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>
#include <QScreen>

#include <algorithm>

Q_IMPORT_QML_PLUGIN(ui_kitPlugin)

namespace kit {

namespace {

constexpr QSizeF DesktopSize(390, 844);

// A screen that is no wider than a large phone held upright is a phone's.
bool isPhone(const QSizeF& screen)
{
    return std::min(screen.width(), screen.height()) <= 480;
}

QUrl urlOf(const char* name)
{
    return { QStringLiteral("qrc:/qt/qml/ui/kit/%1.qml").arg(QLatin1String(name)) };
}

} // namespace

Window::Window(QObject* parent)
    : QObject(parent)
    , m_engine(std::make_unique<QQmlEngine>())
{
    m_engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    readAhead();
}

// On the engine's own thread, while this one makes what the window is to show.
void Window::readAhead()
{
    for (const char* const name : { "KitWindow", "TabPage", "NavigationPage", "ScreenPage", "TableBody", "PlainView" })
        m_readAhead.push_back(
            std::make_unique<QQmlComponent>(m_engine.get(), urlOf(name), QQmlComponent::Asynchronous));
}

Window::~Window()
{
    delete m_quickWindow;
}

void Window::setRootViewController(ViewController* controller)
{
    m_rootViewController = controller;
    controller->setParent(this);
}

void Window::makeKeyAndVisible(const QString& title)
{
    const QScreen& screen = *QGuiApplication::primaryScreen();
    const bool fillsScreen = isPhone(screen.size());
    const QSizeF size = fillsScreen ? QSizeF(screen.availableSize()) : DesktopSize.boundedTo(screen.availableSize());
    resize(size.width(), size.height());

    QQmlComponent component(m_engine.get(), urlOf("KitWindow"));
    if (component.isError())
        qFatal("The interface cannot be made: %s", qPrintable(component.errorString()));
    QObject* object = component.createWithInitialProperties(
        { { QStringLiteral("controller"), QVariant::fromValue(this) }, { QStringLiteral("title"), title },
            { QStringLiteral("width"), size.width() }, { QStringLiteral("height"), size.height() } });
    m_quickWindow = qobject_cast<QQuickWindow*>(object);
    m_rootViewController->beginAppearance();
    // Maximised, a phone's shell keeps its own bars in sight.
    if (fillsScreen)
        m_quickWindow->showMaximized();
    else
        showWithFrameWithin(screen.availableSize());
    m_rootViewController->endAppearance();
}

// The frame is known only once the window has one.
void Window::showWithFrameWithin(const QSize& room)
{
    m_quickWindow->show();
    const QMargins frame = m_quickWindow->frameMargins();
    m_quickWindow->resize(m_quickWindow->size().boundedTo(room.shrunkBy(frame)));
}

void Window::resize(double width, double height)
{
    m_rootViewController->layOut({ 0, 0, width, height });
}

void Window::drawAnew()
{
    m_rootViewController->takeTextScale();
    Q_EMIT lookChanged();
}

void Window::coverBelow(double height)
{
    if (auto* const tabs = qobject_cast<TabBarController*>(m_rootViewController))
        tabs->setCoveredBelow(height);
}

NavigationController* Window::stack() const
{
    auto* const tabs = qobject_cast<TabBarController*>(m_rootViewController);
    return qobject_cast<NavigationController*>(tabs ? tabs->selectedViewController() : m_rootViewController);
}

void Window::goBack()
{
    if (NavigationController* const shown = stack())
        shown->goBack();
}

void Window::escape()
{
    NavigationController* const shown = stack();
    if (shown && !shown->topViewController()->closeWhatIsOpen())
        shown->goBack();
}

ObjectListModel* Window::tabModel() const
{
    auto* const tabs = qobject_cast<TabBarController*>(m_rootViewController);
    return tabs ? tabs->tabModel() : nullptr;
}

void Window::selectTab(int index)
{
    if (auto* const tabs = qobject_cast<TabBarController*>(m_rootViewController))
        tabs->tapTab(index);
}

void Window::search()
{
    if (auto* const tabs = qobject_cast<TabBarController*>(m_rootViewController))
        tabs->activateSearch();
}

void Window::presentAlert(AlertController* alert)
{
    alert->setParent(this);
    m_alerts.append(alert);
    connect(alert, &AlertController::dismissed, this, [this, alert] {
        const bool isShown = alert == presentedAlert();
        m_alerts.removeOne(alert);
        if (isShown)
            Q_EMIT presentedAlertChanged();
        alert->deleteLater();
    });
    if (m_alerts.size() == 1)
        Q_EMIT presentedAlertChanged();
}

} // namespace kit
