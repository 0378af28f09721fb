#include "ui/kit/navigation/TabBarController.h"

#include "ui/kit/navigation/NavigationController.h"

#include <algorithm>

namespace kit {

namespace {

// Of a window with room for titles beside the symbols, and of one without room to spare above and below each other.
constexpr double InlineWidth = 600;
constexpr double CompactInlineWidth = 480;
constexpr double CompactHeight = 480;

TabBar::Layout layoutFor(const QSizeF& window)
{
    if (window.height() < CompactHeight && window.width() >= CompactInlineWidth)
        return TabBar::Layout::CompactInline;
    return window.width() >= InlineWidth ? TabBar::Layout::Inline : TabBar::Layout::Stacked;
}

} // namespace

void TabBar::setStandardAppearance(const TabBarAppearance& appearance)
{
    m_standardAppearance = appearance;
    Q_EMIT barChanged();
}

void TabBar::fitInto(const QSizeF& window)
{
    const Layout layout = layoutFor(window);
    if (layout == m_layout)
        return;
    m_layout = layout;
    Q_EMIT barChanged();
}

const TabItemAppearance& TabBar::items() const
{
    switch (m_layout) {
    case Layout::Inline:
        return m_standardAppearance.inlineLayoutAppearance;
    case Layout::CompactInline:
        return m_standardAppearance.compactInlineLayoutAppearance;
    case Layout::Stacked:
        break;
    }
    return m_standardAppearance.stackedLayoutAppearance;
}

TabBarController::TabBarController(QObject* parent)
    : ViewController(parent)
{
}

TabBarController::~TabBarController() = default;

ViewController* TabBarController::selectedViewController() const
{
    return m_selectedIndex < 0 ? nullptr : m_viewControllers[static_cast<std::size_t>(m_selectedIndex)];
}

void TabBarController::setViewControllers(const std::vector<ViewController*>& controllers)
{
    const std::vector<ViewController*> before = m_viewControllers;
    letGoOfTabs();
    for (ViewController* controller : before)
        if (std::find(controllers.begin(), controllers.end(), controller) == controllers.end())
            controller->deleteLater();
    m_viewControllers = controllers;
    for (ViewController* controller : controllers) {
        controller->setParent(this);
        m_tabModel.append(controller);
    }
    setSelectedIndex(0);
}

void TabBarController::letGoOfTabs()
{
    ViewController* const leaving = selectedViewController();
    if (m_visible && leaving)
        leaving->beginDisappearance();
    m_selectedIndex = -1;
    for (ViewController* controller : m_viewControllers)
        m_tabModel.remove(controller);
    m_viewControllers.clear();
    if (!leaving)
        return;
    Q_EMIT selectedIndexChanged();
    if (m_visible)
        leaving->endDisappearance();
}

void TabBarController::setSelectedIndex(int index)
{
    if (index == m_selectedIndex || index < 0 || index >= static_cast<int>(m_viewControllers.size()))
        return;
    ViewController* const leaving = selectedViewController();
    m_selectedIndex = index;
    ViewController* const coming = selectedViewController();
    if (coming && isViewLoaded())
        coming->layOut(contentFrame());
    if (m_visible && leaving)
        leaving->beginDisappearance();
    if (m_visible && coming)
        coming->beginAppearance();
    Q_EMIT selectedIndexChanged();
    if (m_visible && leaving)
        leaving->endDisappearance();
    if (m_visible && coming)
        coming->endAppearance();
}

void TabBarController::setCoveredBelow(double height)
{
    m_coveredBelow = height;
    Q_EMIT heightBelowChanged();
    if (ViewController* selected = selectedViewController())
        selected->layOut(contentFrame());
}

void TabBarController::tapTab(int index)
{
    auto* const stack = qobject_cast<NavigationController*>(selectedViewController());
    if (index == m_selectedIndex && stack)
        stack->popToRootViewController(NavigationController::Animation::Animated);
    else
        setSelectedIndex(index);
}

void TabBarController::activateSearch()
{
    for (std::size_t index = 0; index < m_viewControllers.size(); ++index) {
        auto* const stack = qobject_cast<NavigationController*>(m_viewControllers[index]);
        ViewController* const root = stack ? stack->viewControllers().front() : m_viewControllers[index];
        root->view();
        SearchController* const search = root->navigationItem()->searchController();
        if (!search)
            continue;
        setSelectedIndex(static_cast<int>(index));
        if (stack)
            stack->popToRootViewController(NavigationController::Animation::None);
        return search->searchBar()->setActive(true);
    }
}

void TabBarController::viewWillAppear()
{
    m_visible = true;
    if (ViewController* selected = selectedViewController())
        selected->beginAppearance();
}

void TabBarController::viewDidAppear()
{
    if (ViewController* selected = selectedViewController())
        selected->endAppearance();
}

void TabBarController::viewWillDisappear()
{
    if (ViewController* selected = selectedViewController())
        selected->beginDisappearance();
}

void TabBarController::viewDidDisappear()
{
    if (ViewController* selected = selectedViewController())
        selected->endDisappearance();
    m_visible = false;
}

void TabBarController::viewDidLayoutSubviews()
{
    m_tabBar.fitInto(view()->frame().size());
    if (ViewController* selected = selectedViewController())
        selected->layOut(contentFrame());
}

void TabBarController::takeTextScale()
{
    for (ViewController* controller : m_viewControllers)
        controller->takeTextScale();
}

QRectF TabBarController::contentFrame()
{
    const QSizeF size = view()->frame().size();
    return { 0, 0, size.width(), std::max(0.0, size.height() - heightBelow()) };
}

} // namespace kit
