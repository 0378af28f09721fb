#include "ui/kit/navigation/NavigationController.h"

#include "ui/kit/paint/Animations.h"

#include <algorithm>
#include <utility>

namespace kit {

void NavigationBar::setTintColor(const Color& color)
{
    m_tintColor = color;
    Q_EMIT barChanged();
}

void NavigationBar::setStandardAppearance(const BarAppearance& appearance)
{
    m_standardAppearance = appearance;
    Q_EMIT barChanged();
}

NavigationController::NavigationController(ViewController* root, QObject* parent)
    : ViewController(parent)
    , m_stack{ root }
{
    root->setParent(this);
    root->setNavigationController(this);
    m_pageModel.append(root);
    m_animation.setEndValue(1.0);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this,
        [this](const QVariant& value) { setProgress(value.toDouble()); });
    connect(&m_animation, &QVariantAnimation::finished, this, [this] { change([this] { finishTransition(); }); });
}

NavigationController::~NavigationController()
{
    m_animation.disconnect(this);
}

View* NavigationController::loadView()
{
    auto* container = new View;
    connect(container, &View::frameChanged, this, &NavigationController::layOutPages);
    return container;
}

void NavigationController::layOutPages()
{
    layOutPage(topViewController());
    if (m_leaving)
        layOutPage(m_leaving);
}

// The bar is as tall as its screen needs it.
void NavigationController::layOutPage(ViewController* page)
{
    const double barHeight = barHeightFor(page);
    const QSizeF size = view()->frame().size();
    page->layOut({ 0, barHeight, size.width(), std::max(0.0, size.height() - barHeight) });
}

double NavigationController::barHeightFor(ViewController* page)
{
    page->view();
    return NavigationBar::Height + (page->navigationItem()->searchController() ? NavigationBar::SearchHeight : 0);
}

double NavigationController::barHeight() const
{
    const double height = barHeightFor(topViewController());
    return m_leaving ? barHeightFor(m_leaving) * (1 - m_progress) + height * m_progress : height;
}

// MARK: the stack

void NavigationController::change(std::function<void()> change)
{
    m_changes.push_back(std::move(change));
    if (m_changing)
        return;
    m_changing = true;
    while (!m_changes.empty()) {
        const std::function<void()> next = std::move(m_changes.front());
        m_changes.erase(m_changes.begin());
        next();
    }
    m_changing = false;
}

void NavigationController::pushViewController(ViewController* controller, Animation animation)
{
    controller->setParent(this);
    controller->setNavigationController(this);
    change([this, controller, animation] {
        settle();
        ViewController* const leaving = topViewController();
        controller->setBackTitle(leaving->title().isEmpty() ? QStringLiteral("Back") : leaving->title());
        m_stack.push_back(controller);
        startTransition(leaving, Direction::Push, animation);
    });
}

void NavigationController::popViewController(Animation animation)
{
    change([this, animation] {
        settle();
        if (!canGoBack())
            return;
        ViewController* const leaving = topViewController();
        m_stack.pop_back();
        startTransition(leaving, Direction::Pop, animation);
    });
}

void NavigationController::popToRootViewController(Animation animation)
{
    change([this, animation] {
        settle();
        if (!canGoBack())
            return;
        ViewController* const leaving = topViewController();
        for (std::size_t index = 1; index + 1 < m_stack.size(); ++index)
            drop(m_stack[index]);
        m_stack.resize(1);
        startTransition(leaving, Direction::Pop, animation);
    });
}

void NavigationController::drop(ViewController* controller)
{
    m_pageModel.remove(controller);
    controller->setNavigationController(nullptr);
    controller->setParent(nullptr);
    controller->deleteLater();
}

// MARK: the transition

// Whatever is under way comes to its end at once.
void NavigationController::settle()
{
    if (m_swipingBack)
        bringPageBack(Animation::None);
    else
        finishTransition();
}

void NavigationController::startTransition(ViewController* leaving, Direction direction, Animation animation)
{
    beginTransition(leaving, direction, 0);
    runTransition(animation);
}

void NavigationController::beginTransition(ViewController* leaving, Direction direction, double progress)
{
    m_leaving = leaving;
    m_direction = direction;
    if (m_visible) {
        leaving->beginDisappearance();
        topViewController()->beginAppearance();
    }
    if (!m_pageModel.objects().contains(topViewController()))
        m_pageModel.append(topViewController());
    layOutPages();
    setProgress(progress);
    Q_EMIT stackChanged();
}

// From where it stands to its end.
void NavigationController::runTransition(Animation animation)
{
    const int whole = animation == Animation::Animated && m_visible ? Animations::duration(Animations::Push) : 0;
    const int duration = static_cast<int>(whole * (1 - m_progress));
    if (duration <= 0)
        return finishTransition();
    m_animation.setStartValue(m_progress);
    m_animation.setDuration(duration);
    m_animation.start();
}

void NavigationController::finishTransition()
{
    if (!m_leaving)
        return;
    m_animation.stop();
    ViewController* const leaving = std::exchange(m_leaving, nullptr);
    const Direction direction = m_direction;
    setProgress(1);
    if (m_visible) {
        leaving->endDisappearance();
        topViewController()->endAppearance();
    }
    if (direction == Direction::Pop)
        drop(leaving);
    Q_EMIT stackChanged();
}

// MARK: the swipe back

bool NavigationController::beginSwipeBack()
{
    if (m_changing || m_leaving || !m_visible || !canGoBack())
        return false;
    m_swipingBack = true;
    change([this] {
        ViewController* const leaving = topViewController();
        m_stack.pop_back();
        beginTransition(leaving, Direction::Pop, 0);
    });
    return m_swipingBack;
}

void NavigationController::moveSwipeBack(double share)
{
    if (m_swipingBack)
        setProgress(std::clamp(share, 0.0, 1.0));
}

void NavigationController::endSwipeBack(double speed)
{
    // Where the page would be after so many more seconds decides.
    constexpr double Onward = 0.2;
    if (!m_swipingBack)
        return;
    change([this, speed] {
        if (m_progress + speed * Onward <= 0.5)
            return bringPageBack(Animation::Animated);
        m_swipingBack = false;
        runTransition(Animation::Animated);
    });
}

// A push of the page that was drawn aside, from where it is.
void NavigationController::bringPageBack(Animation animation)
{
    m_swipingBack = false;
    ViewController* const below = topViewController();
    m_stack.push_back(m_leaving);
    beginTransition(below, Direction::Push, 1 - m_progress);
    runTransition(animation);
}

void NavigationController::setProgress(double progress)
{
    m_progress = progress;
    Q_EMIT progressChanged();
}

// MARK: appearing as a whole

void NavigationController::viewWillAppear()
{
    m_visible = true;
    topViewController()->beginAppearance();
}

void NavigationController::viewDidAppear()
{
    topViewController()->endAppearance();
}

void NavigationController::viewWillDisappear()
{
    settle();
    topViewController()->beginDisappearance();
}

void NavigationController::viewDidDisappear()
{
    topViewController()->endDisappearance();
    m_visible = false;
}

void NavigationController::takeTextScale()
{
    for (ViewController* screen : m_stack)
        screen->takeTextScale();
}

} // namespace kit
