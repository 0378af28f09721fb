#pragma once

#include "ui/kit/navigation/BarAppearance.h"
#include "ui/kit/navigation/ViewController.h"
#include "ui/kit/paint/Metrics.h"

#include <vector>

namespace kit {

// The bar of tabs at the window's lower edge.
class TabBar : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(kit::Image backgroundImage READ backgroundImage NOTIFY barChanged)
    Q_PROPERTY(QColor backgroundColor READ backgroundColor NOTIFY barChanged)
    Q_PROPERTY(QColor shadowColor READ shadowColor NOTIFY barChanged)
    Q_PROPERTY(QColor iconColor READ iconColor NOTIFY barChanged)
    Q_PROPERTY(QColor selectedIconColor READ selectedIconColor NOTIFY barChanged)
    Q_PROPERTY(QColor titleColor READ titleColor NOTIFY barChanged)
    Q_PROPERTY(QColor selectedTitleColor READ selectedTitleColor NOTIFY barChanged)
    Q_PROPERTY(QFont titleFont READ titleFont NOTIFY barChanged)
    Q_PROPERTY(int standardTitleSize READ standardTitleSize NOTIFY barChanged)

public:
    static constexpr double Height = Metrics::TabBarHeight;

    using QObject::QObject;

    bool isTranslucent() const { return m_translucent; }
    void setTranslucent(bool translucent) { m_translucent = translucent; }
    const Color& tintColor() const { return m_tintColor; }
    void setTintColor(const Color& color) { m_tintColor = color; }
    const Color& unselectedItemTintColor() const { return m_unselectedItemTintColor; }
    void setUnselectedItemTintColor(const Color& color) { m_unselectedItemTintColor = color; }
    const TabBarAppearance& standardAppearance() const { return m_standardAppearance; }
    void setStandardAppearance(const TabBarAppearance& appearance);
    const TabBarAppearance& scrollEdgeAppearance() const { return m_scrollEdgeAppearance; }
    void setScrollEdgeAppearance(const TabBarAppearance& appearance) { m_scrollEdgeAppearance = appearance; }

    const Image& backgroundImage() const { return m_standardAppearance.backgroundImage; }
    QColor backgroundColor() const { return m_standardAppearance.backgroundColor.toQColor(); }
    QColor shadowColor() const { return m_standardAppearance.shadowColor.toQColor(); }
    QColor iconColor() const { return stacked().normal.iconColor.toQColor(); }
    QColor selectedIconColor() const { return stacked().selected.iconColor.toQColor(); }
    QColor titleColor() const { return stacked().normal.titleTextAttributes.foregroundColor.toQColor(); }
    QColor selectedTitleColor() const { return stacked().selected.titleTextAttributes.foregroundColor.toQColor(); }
    QFont titleFont() const { return Font::fittedToBar(stacked().normal.titleTextAttributes.font); }
    int standardTitleSize() const { return Font::standardSize(stacked().normal.titleTextAttributes.font); }

Q_SIGNALS:
    void barChanged();

private:
    const TabItemAppearance& stacked() const { return m_standardAppearance.stackedLayoutAppearance; }

    TabBarAppearance m_standardAppearance;
    TabBarAppearance m_scrollEdgeAppearance;
    Color m_tintColor = Color::white();
    Color m_unselectedItemTintColor = Color::white();
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

    // Goes to the first tab whose root screen has a search field, and into that field.
    void activateSearch();

    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewWillDisappear() override;
    void viewDidDisappear() override;
    void viewDidLayoutSubviews() override;
    QString component() const override { return QStringLiteral("TabPage"); }
    ObjectListModel* tabModel() { return &m_tabModel; }

Q_SIGNALS:
    void selectedIndexChanged();

private:
    QRectF contentFrame();
    void letGoOfTabs();

    TabBar m_tabBar;
    std::vector<ViewController*> m_viewControllers;
    ObjectListModel m_tabModel;
    int m_selectedIndex = -1;
    bool m_visible = false;
};

} // namespace kit
