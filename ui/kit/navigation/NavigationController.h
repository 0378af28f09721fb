#pragma once

#include "ui/kit/navigation/BarAppearance.h"
#include "ui/kit/navigation/ViewController.h"
#include "ui/kit/paint/Metrics.h"

#include <QVariantAnimation>

#include <functional>
#include <vector>

namespace kit {

enum class BarStyle { Default, Black };

// The bar above a stack of screens. It shows what the top screen's navigation item holds.
class NavigationBar : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(QColor tint READ tint NOTIFY barChanged)
    Q_PROPERTY(kit::Image backgroundImage READ backgroundImage NOTIFY barChanged)
    Q_PROPERTY(QColor backgroundColor READ backgroundColor NOTIFY barChanged)
    Q_PROPERTY(QColor shadowColor READ shadowColor NOTIFY barChanged)
    Q_PROPERTY(QColor titleColor READ titleColor NOTIFY barChanged)
    Q_PROPERTY(QFont titleFont READ titleFont NOTIFY barChanged)
    Q_PROPERTY(int standardTitleSize READ standardTitleSize NOTIFY barChanged)

public:
    static constexpr double Height = Metrics::NavigationBarHeight;
    static constexpr double SearchHeight = Metrics::SearchBarHeight;

    using QObject::QObject;

    const Color& tintColor() const { return m_tintColor; }
    void setTintColor(const Color& color);
    const BarAppearance& standardAppearance() const { return m_standardAppearance; }
    void setStandardAppearance(const BarAppearance& appearance);

    // Recorded only: the bar is opaque and the screens end at it, so nothing shows through; the clock above it is the
    // desktop's; and its look does not change with what scrolls.
    bool isTranslucent() const { return m_translucent; }
    void setTranslucent(bool translucent) { m_translucent = translucent; }
    BarStyle barStyle() const { return m_barStyle; }
    void setBarStyle(BarStyle style) { m_barStyle = style; }
    const BarAppearance& scrollEdgeAppearance() const { return m_scrollEdgeAppearance; }
    void setScrollEdgeAppearance(const BarAppearance& appearance) { m_scrollEdgeAppearance = appearance; }

    QColor tint() const { return m_tintColor.toQColor(); }
    const Image& backgroundImage() const { return m_standardAppearance.backgroundImage; }
    QColor backgroundColor() const { return m_standardAppearance.backgroundColor.toQColor(); }
    QColor shadowColor() const { return m_standardAppearance.shadowColor.toQColor(); }
    QColor titleColor() const { return m_standardAppearance.titleTextAttributes.foregroundColor.toQColor(); }
    QFont titleFont() const { return Font::fittedToBar(m_standardAppearance.titleTextAttributes.font); }
    int standardTitleSize() const { return m_standardAppearance.titleTextAttributes.font.pixelSize(); }

Q_SIGNALS:
    void barChanged();

private:
    BarAppearance m_standardAppearance;
    BarAppearance m_scrollEdgeAppearance;
    Color m_tintColor = Color::white();
    BarStyle m_barStyle = BarStyle::Default;
    bool m_translucent = true;
};

// A stack of screens of which the top one shows, under a navigation bar whose back button leads to the one below.
class NavigationController : public ViewController
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(kit::NavigationBar* navigationBar READ navigationBar CONSTANT)
    Q_PROPERTY(kit::ObjectListModel* pageModel READ pageModel CONSTANT)
    Q_PROPERTY(kit::ViewController* topViewController READ topViewController NOTIFY stackChanged)
    Q_PROPERTY(kit::ViewController* leavingViewController READ leavingViewController NOTIFY stackChanged)
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY stackChanged)
    Q_PROPERTY(bool pushing READ isPushing NOTIFY stackChanged)
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(double barHeight READ barHeight NOTIFY progressChanged)

public:
    enum class Animation { None, Animated };

    // Takes ownership of the root screen, and of those pushed.
    explicit NavigationController(ViewController* root, QObject* parent = nullptr);
    ~NavigationController() override;

    NavigationBar* navigationBar() { return &m_navigationBar; }
    const std::vector<ViewController*>& viewControllers() const { return m_stack; }
    ViewController* topViewController() const { return m_stack.back(); }
    // A change asked for by a screen that is being told of another one follows that one.
    void pushViewController(ViewController* controller, Animation animation);
    // The screen that leaves is deleted once it is out of sight. The root stays.
    void popViewController(Animation animation);
    void popToRootViewController(Animation animation);

    NavigationController* navigationController() const override { return nullptr; }
    TabBarItem* tabBarItem() override { return m_stack.front()->tabBarItem(); }
    // The moments of the whole stack are those of its top screen.
    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewWillDisappear() override;
    void viewDidDisappear() override;
    void takeTextScale() override;
    QString component() const override { return QStringLiteral("NavigationPage"); }

    // The transition between two screens, 0 to 1; 1 while there is none.
    double progress() const { return m_progress; }
    // Of the navigation bar, on its way from one screen's to the next's during a transition.
    double barHeight() const;
    bool isTransitioning() const { return m_leaving != nullptr; }
    ViewController* leavingViewController() const { return m_leaving; }
    bool isPushing() const { return m_direction == Direction::Push; }
    bool canGoBack() const { return m_stack.size() > 1; }
    ObjectListModel* pageModel() { return &m_pageModel; }

    Q_INVOKABLE void goBack() { popViewController(Animation::Animated); }

    // The way back by a finger that draws the top page aside. From its beginning everything is as after a pop: the page
    // below is the top one and is told that it will appear, the page drawn aside that it will disappear. If it is let
    // go of too early the page comes back as if pushed again, and is told that it will and did appear, the page below
    // that it will and did disappear: each screen hears its moments in pairs. Any other change ends a swipe first and
    // brings the page back. False at the root, during a transition, and while the stack is out of sight.
    Q_INVOKABLE bool beginSwipeBack();
    // How far aside the page is, as a share of its width.
    Q_INVOKABLE void moveSwipeBack(double share);
    // Let go of at so many widths a second, to the right: whether the page goes depends on that and on how far it is.
    Q_INVOKABLE void endSwipeBack(double speed);
    bool isSwipingBack() const { return m_swipingBack; }

Q_SIGNALS:
    void stackChanged();
    void progressChanged();

protected:
    View* loadView() override;

private:
    enum class Direction { Push, Pop };

    void change(std::function<void()> change);
    void settle();
    void startTransition(ViewController* leaving, Direction direction, Animation animation);
    void beginTransition(ViewController* leaving, Direction direction, double progress);
    void runTransition(Animation animation);
    void finishTransition();
    void bringPageBack(Animation animation);
    void setProgress(double progress);
    void layOutPages();
    void layOutPage(ViewController* page);
    static double barHeightFor(ViewController* page);
    void drop(ViewController* controller);

    NavigationBar m_navigationBar;
    std::vector<ViewController*> m_stack;
    ObjectListModel m_pageModel;
    ViewController* m_leaving = nullptr;
    Direction m_direction = Direction::Push;
    QVariantAnimation m_animation;
    std::vector<std::function<void()>> m_changes;
    double m_progress = 1;
    bool m_visible = false;
    bool m_changing = false;
    bool m_swipingBack = false;
};

} // namespace kit
