#pragma once

#include "ui/kit/alert/AlertController.h"
#include "ui/kit/navigation/ViewController.h"

#include <QList>
#include <QSize>

#include <memory>
#include <vector>

class QQmlComponent;
class QQmlEngine;
class QQuickWindow;

namespace kit {

// The application's window: shows a root screen and, over it, the alerts that screens present.
class Window : public QObject, public AlertPresenter
{
    Q_OBJECT
    QML_NAMED_ELEMENT(WindowController)
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(kit::ViewController* rootViewController READ rootViewController CONSTANT)
    Q_PROPERTY(kit::ObjectListModel* tabModel READ tabModel CONSTANT)
    Q_PROPERTY(kit::AlertController* alert READ presentedAlert NOTIFY presentedAlertChanged)

public:
    explicit Window(QObject* parent = nullptr);
    ~Window() override;

    // Takes ownership; set once.
    void setRootViewController(ViewController* controller);
    ViewController* rootViewController() const { return m_rootViewController; }
    // Null unless the root screen is a bar of tabs.
    ObjectListModel* tabModel() const;
    // Opens the window with the title: maximised on a phone, 390 by 844 points, or what the screen has room for,
    // elsewhere.
    void makeKeyAndVisible(const QString& title);
    // Null until the window is open.
    QQuickWindow* quickWindow() const { return m_quickWindow; }

    // What a person prefers has changed, of the size of texts or of movements: draws all of the window anew by it.
    void drawAnew();

    AlertController* presentedAlert() const { return m_alerts.isEmpty() ? nullptr : m_alerts.first(); }
    void presentAlert(AlertController* alert) override;

    // The window's keys: Alt+Left, Escape, Ctrl and a tab's number, Ctrl+F.
    Q_INVOKABLE void goBack();
    Q_INVOKABLE void escape();
    Q_INVOKABLE void selectTab(int index);
    Q_INVOKABLE void search();
    // The window was given a size.
    Q_INVOKABLE void resize(double width, double height);
    // An on-screen keyboard covers so much of it, from the lower edge up: the screens end above that.
    Q_INVOKABLE void coverBelow(double height);

Q_SIGNALS:
    void presentedAlertChanged();
    void lookChanged();

private:
    void showWithFrameWithin(const QSize& room);
    // That of the selected tab; null if there is none.
    NavigationController* stack() const;

    void readAhead();

    std::unique_ptr<QQmlEngine> m_engine;
    std::vector<std::unique_ptr<QQmlComponent>> m_readAhead;
    QQuickWindow* m_quickWindow = nullptr;
    ViewController* m_rootViewController = nullptr;
    QList<AlertController*> m_alerts;
};

} // namespace kit
