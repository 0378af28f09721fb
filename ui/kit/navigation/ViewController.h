#pragma once

#include "ui/kit/navigation/NavigationItem.h"
#include "ui/kit/view/View.h"

namespace kit {

class AlertController;
class NavigationController;

// Shows alerts above everything: the window is one. A screen finds it among its QObject parents.
class AlertPresenter
{
public:
    virtual ~AlertPresenter() = default;
    // Takes ownership. Alerts presented while another shows come after it.
    virtual void presentAlert(AlertController* alert) = 0;
};

// A screen: a view, what it puts into the bars around it, and the moments of its life. Its view is made when it is
// first asked for. Owned by the controller that shows it.
class ViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("screens are made in C++")
    Q_PROPERTY(kit::View* view READ view CONSTANT)
    Q_PROPERTY(kit::NavigationItem* navigationItem READ navigationItem CONSTANT)
    Q_PROPERTY(kit::TabBarItem* tabBarItem READ tabBarItem CONSTANT)
    Q_PROPERTY(QString backTitle READ backTitle CONSTANT)
    Q_PROPERTY(QString component READ component CONSTANT)

public:
    explicit ViewController(QObject* parent = nullptr);

    const QString& title() const { return m_navigationItem.title(); }
    void setTitle(const QString& title) { m_navigationItem.setTitle(title); }
    NavigationItem* navigationItem() { return &m_navigationItem; }
    // What stands for the screen in a tab bar; a stack's is that of its root screen.
    virtual TabBarItem* tabBarItem() { return &m_tabBarItem; }
    // Makes the view, then calls viewDidLoad(), on the first call.
    View* view();
    bool isViewLoaded() const { return m_view != nullptr; }
    const View* loadedView() const { return m_view; }
    // The stack the screen is on, or null.
    virtual NavigationController* navigationController() const { return m_navigationController; }
    void setNavigationController(NavigationController* controller) { m_navigationController = controller; }
    // What the back button says while this screen is on top: the title of the screen below, or "Back" if it has none.
    // Null on a root screen, which has no such button.
    const QString& backTitle() const { return m_backTitle; }
    void setBackTitle(const QString& title) { m_backTitle = title; }
    // Hands the alert to the presenter among the parents; without one the alert is dropped.
    void present(AlertController* alert);

    // The moments of a screen's life, called by the controller that shows it.
    virtual void viewDidLoad() { }
    virtual void viewWillAppear() { }
    virtual void viewDidAppear() { }
    virtual void viewWillDisappear() { }
    virtual void viewDidDisappear() { }
    virtual void viewDidLayoutSubviews() { }

    // Escape is for what the screen has open, before it leads back. False if there is nothing.
    virtual bool closeWhatIsOpen() { return false; }

    // What a person prefers has changed: takes the sizes that follow from the text scale anew.
    virtual void takeTextScale() { }

    // Gives the view its frame and tells the screen.
    void layOut(const QRectF& frame);
    // Appearing in steps, each at most once in a row.
    void beginAppearance();
    void endAppearance();
    void beginDisappearance();
    void endDisappearance();

    virtual QString component() const { return QStringLiteral("ScreenPage"); }

protected:
    virtual View* loadView();

private:
    enum class Appearance { Gone, Appearing, There, Disappearing };

    NavigationItem m_navigationItem;
    TabBarItem m_tabBarItem;
    QString m_backTitle;
    View* m_view = nullptr;
    NavigationController* m_navigationController = nullptr;
    Appearance m_appearance = Appearance::Gone;
};

} // namespace kit
