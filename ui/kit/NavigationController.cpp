#include "NavigationController.h"

#include "Animations.h"

#include <algorithm>
#include <utility>

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
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this,
        [this](const QVariant& value) { setProgress(value.toDouble()); });
    connect(&m_animation, &QVariantAnimation::finished, this, &NavigationController::finishTransition);
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

void NavigationController::pushViewController(ViewController* controller, Animation animation)
{
    finishTransition();
    ViewController* const leaving = topViewController();
    controller->setParent(this);
    controller->setNavigationController(this);
    controller->setBackTitle(leaving->title().isEmpty() ? QStringLiteral("Back") : leaving->title());
    m_stack.push_back(controller);
    startTransition(leaving, Direction::Push, animation);
}

void NavigationController::popViewController(Animation animation)
{
    finishTransition();
    if (!canGoBack())
        return;
    ViewController* const leaving = topViewController();
    m_stack.pop_back();
    startTransition(leaving, Direction::Pop, animation);
}

void NavigationController::popToRootViewController(Animation animation)
{
    finishTransition();
    if (!canGoBack())
        return;
    ViewController* const leaving = topViewController();
    for (std::size_t index = 1; index + 1 < m_stack.size(); ++index)
        drop(m_stack[index]);
    m_stack.resize(1);
    startTransition(leaving, Direction::Pop, animation);
}

void NavigationController::drop(ViewController* controller)
{
    m_pageModel.remove(controller);
    controller->setNavigationController(nullptr);
    controller->setParent(nullptr);
    controller->deleteLater();
}

// MARK: the transition

void NavigationController::startTransition(ViewController* leaving, Direction direction, Animation animation)
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
    setProgress(0);
    Q_EMIT stackChanged();
    m_animation.setDuration(animation == Animation::Animated ? Animations::duration(Animations::Push) : 0);
    if (m_visible && m_animation.duration() > 0)
        m_animation.start();
    else
        finishTransition();
}

void NavigationController::finishTransition()
{
    if (!m_leaving)
        return;
    m_animation.stop();
    ViewController* const leaving = std::exchange(m_leaving, nullptr);
    setProgress(1);
    if (m_visible) {
        leaving->endDisappearance();
        topViewController()->endAppearance();
    }
    if (m_direction == Direction::Pop)
        drop(leaving);
    Q_EMIT stackChanged();
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
    finishTransition();
    topViewController()->beginDisappearance();
}

void NavigationController::viewDidDisappear()
{
    topViewController()->endDisappearance();
    m_visible = false;
}
