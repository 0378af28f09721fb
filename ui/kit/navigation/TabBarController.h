#pragma once

#include "ui/kit/navigation/BarAppearance.h"
#include "ui/kit/navigation/ViewController.h"
#include "ui/kit/paint/Metrics.h"

#include <algorithm>
#include <vector>

namespace kit {

// The bar of tabs at the window's lower edge. In a wide window the tabs have their title beside the symbol, and in a
// low one, as of a phone on its side, the compact form of that; the bar's height is what a finger needs in any of them.
class TabBar : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(kit::Image backgroundImage READ backgroundImage NOTIFY barChanged)
    Q_PROPERTY(QColor backgroundColor READ backgroundColor NOTIFY barChanged)
    Q_PROPERTY(QColor shadowColor READ shadowColor NOTIFY barChanged)
    Q_PROPERTY(Layout layout READ layout NOTIFY barChanged)
    Q_PROPERTY(QColor iconColor READ iconColor NOTIFY barChanged)
    Q_PROPERTY(QColor selectedIconColor READ selectedIconColor NOTIFY barChanged)
    Q_PROPERTY(QColor titleColor READ titleColor NOTIFY barChanged)
    Q_PROPERTY(QColor selectedTitleColor READ selectedTitleColor NOTIFY barChanged)
    Q_PROPERTY(QFont titleFont READ titleFont NOTIFY barChanged)
    Q_PROPERTY(int standardTitleSize READ standardTitleSize NOTIFY barChanged)

public:
    static constexpr double Height = Metrics::TabBarHeight;

    enum class Layout { Stacked, Inline, CompactInline };
    Q_ENUM(Layout)

    using QObject::QObject;

    Layout layout() const { return m_layout; }
    // Takes the layout for a window of that size.
    void fitInto(const QSizeF& window);

    const TabBarAppearance& standardAppearance() const { return m_standardAppearance; }
    void setStandardAppearance(const TabBarAppearance& appearance);

    // Recorded only: the bar is opaque and the screens end at it, its look does not change with what scrolls, and its
    // colours are those of the appearance.
    bool isTranslucent() const { return m_translucent; }
    void setTranslucent(bool translucent) { m_translucent = translucent; }
    const Color& tintColor() const { return m_tintColor; }
    void setTintColor(const Color& color) { m_tintColor = color; }
    const Color& unselectedItemTintColor() const { return m_unselectedItemTintColor; }
    void setUnselectedItemTintColor(const Color& color) { m_unselectedItemTintColor = color; }
    const TabBarAppearance& scrollEdgeAppearance() const { return m_scrollEdgeAppearance; }
    void setScrollEdgeAppearance(const TabBarAppearance& appearance) { m_scrollEdgeAppearance = appearance; }

    const Image& backgroundImage() const { return m_standardAppearance.backgroundImage; }
    QColor backgroundColor() const { return m_standardAppearance.backgroundColor.toQColor(); }
    QColor shadowColor() const { return m_standardAppearance.shadowColor.toQColor(); }
    QColor iconColor() const { return items().normal.iconColor.toQColor(); }
    QColor selectedIconColor() const { return items().selected.iconColor.toQColor(); }
    QColor titleColor() const { return items().normal.titleTextAttributes.foregroundColor.toQColor(); }
    QColor selectedTitleColor() const { return items().selected.titleTextAttributes.foregroundColor.toQColor(); }
    QFont titleFont() const { return Font::fittedToBar(items().normal.titleTextAttributes.font); }
    int standardTitleSize() const { return items().normal.titleTextAttributes.font.pixelSize(); }

Q_SIGNALS:
    void barChanged();

private:
    const TabItemAppearance& items() const;

    TabBarAppearance m_standardAppearance;
    TabBarAppearance m_scrollEdgeAppearance;
    Color m_tintColor = Color::white();
    Color m_unselectedItemTintColor = Color::white();
    Layout m_layout = Layout::Stacked;
    bool m_translucent = true;
};

// Shows one of several screens, chosen by the tab bar; the others keep their state.
class TabBarController : public ViewController
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(kit::TabBar* tabBar READ tabBar CONSTANT)
    Q_PROPERTY(kit::ObjectListModel* tabModel READ tabModel CONSTANT)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectedIndexChanged)
    Q_PROPERTY(double heightBelow READ heightBelow NOTIFY heightBelowChanged)

public:
    explicit TabBarController(QObject* parent = nullptr);
    ~TabBarController() override;

    TabBar* tabBar() { return &m_tabBar; }
    const std::vector<ViewController*>& viewControllers() const { return m_viewControllers; }
    // Takes ownership; those from before that are not among them are deleted. The first one is selected.
    void setViewControllers(const std::vector<ViewController*>& controllers);
    int selectedIndex() const { return m_selectedIndex; }
    ViewController* selectedViewController() const;
    void setSelectedIndex(int index);

    // A tab was tapped: selects it, or, when it is the selected one, goes back to its root screen.
    Q_INVOKABLE void tapTab(int index);

    // So much at the lower edge is covered, by an on-screen keyboard: the screens end above that, not the bar.
    void setCoveredBelow(double height);
    // Below the screens: the bar's, or more of what covers it.
    double heightBelow() const { return std::max(TabBar::Height, m_coveredBelow); }

    // Goes to the first tab whose root screen has a search field, and into that field.
    void activateSearch();

    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewWillDisappear() override;
    void viewDidDisappear() override;
    void viewDidLayoutSubviews() override;
    void takeTextScale() override;
    QString component() const override { return QStringLiteral("TabPage"); }
    ObjectListModel* tabModel() { return &m_tabModel; }

Q_SIGNALS:
    void selectedIndexChanged();
    void heightBelowChanged();

private:
    QRectF contentFrame();
    void letGoOfTabs();

    TabBar m_tabBar;
    std::vector<ViewController*> m_viewControllers;
    ObjectListModel m_tabModel;
    double m_coveredBelow = 0;
    int m_selectedIndex = -1;
    bool m_visible = false;
};

} // namespace kit
