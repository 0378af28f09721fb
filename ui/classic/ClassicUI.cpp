#include "ui/classic/ClassicUI.h"

#include "ui/classic/IconLoader.h"
#include "ui/kit/text/TextScale.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <memory>

namespace {

constexpr double wholeScale = 255.0;
constexpr kit::EdgeInsets barInsets{ 0, 8, 0, 8 };
constexpr kit::EdgeInsets rowInsets{ 0, 12, 0, 12 };
constexpr double headerMargin = 14;
// Characters; far more than a line has room for.
constexpr qsizetype longestHeader = 1000;
constexpr double nearlyNothing = 0.01;

const kit::Color& shadow()
{
    static const kit::Color color = kit::Color::black(0.42);
    return color;
}

kit::Color unselectedTabColor()
{
    return ClassicUI::colorWithRed(224, 231, 240, 1);
}

kit::Color makeBackgroundColor()
{
    const kit::Image pattern = ClassicUI::assetNamed(QStringLiteral("AppViewBack"));
    return pattern.isNull() ? ClassicUI::colorWithRed(232, 235, 239, 1) : kit::Color::withPatternImage(pattern);
}

void styleTabItems(kit::TabItemAppearance& items)
{
    const QFont font = kit::Font::boldSystemFont(10);
    items.normal = { unselectedTabColor(), { unselectedTabColor(), font } };
    items.selected = { ClassicUI::veskOrangeColor(), { ClassicUI::veskOrangeColor(), font } };
}

// The image view that shows the image: the given one if it is one, else a new one; null when there is no image.
kit::View* imageViewShowing(const kit::Image& image, kit::View* current)
{
    if (image.isNull())
        return nullptr;
    auto* view = qobject_cast<kit::ImageView*>(current);
    if (!view)
        return new kit::ImageView(image);
    view->setImage(image);
    return view;
}

void styleBackgrounds(kit::TableViewCell& cell, const QString& assetName)
{
    const kit::Image normal = ClassicUI::stretchableAsset(assetName, rowInsets);
    const kit::Image selected = ClassicUI::stretchableAsset(assetName + QStringLiteral("high"), rowInsets);
    cell.setBackgroundColor(kit::Color::clear());
    cell.setBackgroundView(imageViewShowing(normal, cell.backgroundView()));
    cell.setSelectedBackgroundView(imageViewShowing(selected, cell.selectedBackgroundView()));
}

// The one loader of the program, with its cache.
std::unique_ptr<IconLoader>& iconLoader()
{
    static std::unique_ptr<IconLoader> loader;
    return loader;
}

} // namespace

kit::Color ClassicUI::colorWithRed(unsigned red, unsigned green, unsigned blue, double alpha)
{
    return { red / wholeScale, green / wholeScale, blue / wholeScale, alpha, {} };
}

const kit::Color& ClassicUI::veskBackgroundColor()
{
    static const kit::Color color = makeBackgroundColor();
    return color;
}

kit::Color ClassicUI::veskTextColor()
{
    return colorWithRed(25, 50, 80, 1);
}

kit::Color ClassicUI::veskSecondaryTextColor()
{
    return colorWithRed(74, 84, 98, 1);
}

kit::Color ClassicUI::veskBlueColor()
{
    return colorWithRed(48, 88, 145, 1);
}

kit::Color ClassicUI::veskOrangeColor()
{
    return colorWithRed(236, 129, 17, 1);
}

kit::Color ClassicUI::veskRedColor()
{
    return colorWithRed(175, 40, 35, 1);
}

kit::Image ClassicUI::assetNamed(const QString& name)
{
    return kit::Image::named(name);
}

kit::Image ClassicUI::stretchableAsset(const QString& name, const kit::EdgeInsets& capInsets)
{
    const kit::Image image = assetNamed(name);
    return image.isNull() ? image : image.resizable(capInsets, kit::Image::ResizingMode::Stretch);
}

void ClassicUI::styleNavigationController(kit::NavigationController& controller)
{
    kit::NavigationBar* bar = controller.navigationBar();
    bar->setTranslucent(false);
    bar->setTintColor(kit::Color::white());
    bar->setBarStyle(kit::BarStyle::Black);

    kit::BarAppearance appearance;
    appearance.configureWithOpaqueBackground();
    appearance.backgroundImage = stretchableAsset(QStringLiteral("topfade"), barInsets);
    appearance.backgroundColor = colorWithRed(100, 123, 151, 1);
    appearance.shadowColor = colorWithRed(44, 54, 66, 1);
    appearance.titleTextAttributes = { kit::Color::white(), kit::Font::boldSystemFont(18) };
    bar->setStandardAppearance(appearance);
    bar->setScrollEdgeAppearance(appearance);
}

void ClassicUI::styleTabBarController(kit::TabBarController& controller)
{
    kit::TabBar* bar = controller.tabBar();
    bar->setTranslucent(false);
    bar->setTintColor(veskOrangeColor());
    bar->setUnselectedItemTintColor(unselectedTabColor());

    kit::TabBarAppearance appearance;
    appearance.configureWithOpaqueBackground();
    appearance.backgroundImage = stretchableAsset(QStringLiteral("bottomtable"), rowInsets);
    appearance.backgroundColor = colorWithRed(77, 91, 109, 1);
    appearance.shadowColor = colorWithRed(39, 48, 60, 1);
    styleTabItems(appearance.stackedLayoutAppearance);
    styleTabItems(appearance.inlineLayoutAppearance);
    styleTabItems(appearance.compactInlineLayoutAppearance);
    bar->setStandardAppearance(appearance);
    bar->setScrollEdgeAppearance(appearance);
}

void ClassicUI::styleTableView(kit::TableView& table)
{
    table.setBackgroundColor(veskBackgroundColor());
    table.setSeparatorColor(colorWithRed(153, 153, 153, 0.72));
    table.setSeparatorInset({});
    table.setRowHeight(60);
    table.setEstimatedRowHeight(60);
    table.setSectionHeaderHeight(sectionHeaderHeight);
    table.setEstimatedSectionHeaderHeight(sectionHeaderHeight);
    // Next to no footer. Classic tables take 0 for "as high as usual", so it is never asked for.
    table.setSectionFooterHeight(nearlyNothing);
    table.setEstimatedSectionFooterHeight(nearlyNothing);
    table.setTableFooterView(new kit::View);
    table.setDelaysContentTouches(false);
}

void ClassicUI::styleCell(kit::TableViewCell& cell, int variant, kit::TableViewCell::AccessoryType accessory)
{
    styleBackgrounds(cell, variant % 2 == 0 ? QStringLiteral("cellback1") : QStringLiteral("cellback2"));
    cell.textLabel()->setTextColor(veskTextColor());
    cell.textLabel()->setFont(kit::Font::boldSystemFont(15));
    if (kit::Label* detail = cell.detailTextLabel()) {
        detail->setTextColor(veskSecondaryTextColor());
        detail->setFont(kit::Font::systemFont(12));
    }
    cell.setAccessoryType(accessory);
    cell.setTintColor(veskBlueColor());
    cell.setLayoutMargins({ 0, 10, 0, 10 });
    cell.setSeparatorInset({ 0, 10, 0, 10 });
}

kit::View* ClassicUI::sectionHeaderViewWithTitle(const QString& title, double width)
{
    const double height = kit::TextScale::grown(sectionHeaderHeight);
    auto* header = new kit::View({ 0, 0, width, height });
    header->setBackgroundColor(colorWithRed(150, 164, 178, 1));
    header->setGradient({ colorWithRed(173, 184, 195, 1), colorWithRed(117, 132, 149, 1) });

    auto* label = new kit::Label({ headerMargin, 0, std::max(0.0, width - 2 * headerMargin), height });
    // Cut to what can be seen first: letters that grow as capitals make a long text take seconds.
    label->setText(title.left(longestHeader).toUpper());
    label->setTextColor(kit::Color::white());
    label->setFont(kit::Font::boldSystemFont(12));
    label->setShadow(kit::Label::Shadow::Below, shadow());
    label->setAccessibilityElement(false);
    header->setAccessibilityLabel(label->text());
    header->addSubview(label);
    return header;
}

kit::Button* ClassicUI::classicButtonWithTitle(const QString& title, ButtonKind kind)
{
    auto* button = new kit::Button;
    const QString asset
        = kind == ButtonKind::Destructive ? QStringLiteral("buttonbackred") : QStringLiteral("buttonback");
    button->setBackgroundImage(stretchableAsset(asset, rowInsets));
    button->setTitle(title);
    button->titleLabel()->setFont(kit::Font::boldSystemFont(14));
    // Above the letters, which look engraved by it.
    button->titleLabel()->setShadow(kit::Label::Shadow::Above, shadow());
    button->setContentEdgeInsets({ 4, 12, 4, 12 });
    return button;
}

void ClassicUI::setIconNetwork(http::Network* network)
{
    iconLoader() = network ? std::make_unique<IconLoader>(*network, IconLoader::Limits{}) : nullptr;
}

void ClassicUI::loadIconForPackage(const VeskPackage& package, kit::ImageView& imageView)
{
    imageView.setImage(assetNamed(QStringLiteral("Homepage")));
    imageView.setContentMode(kit::ImageView::ContentMode::AspectFit);
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (iconLoader())
        iconLoader()->load(package.iconURLString(), screen ? screen->devicePixelRatio() : 1, imageView);
}
