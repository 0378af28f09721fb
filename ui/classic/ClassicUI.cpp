#include "ClassicUI.h"

#include "IconLoader.h"
#include "TextScale.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QNetworkAccessManager>
#include <QScreen>

#include <algorithm>
#include <memory>

namespace {

constexpr double wholeScale = 255.0;
constexpr EdgeInsets barInsets{ 0, 8, 0, 8 };
constexpr EdgeInsets rowInsets{ 0, 12, 0, 12 };
constexpr double headerHeight = 25;
constexpr double headerMargin = 14;
constexpr double nearlyNothing = 0.01;

const Color& shadow()
{
    static const Color color = Color::black(0.42);
    return color;
}

Color unselectedTabColor()
{
    return ClassicUI::colorWithRed(224, 231, 240, 1);
}

Color makeBackgroundColor()
{
    const Image pattern = ClassicUI::assetNamed(QStringLiteral("AppViewBack"));
    return pattern.isNull() ? ClassicUI::colorWithRed(232, 235, 239, 1) : Color::withPatternImage(pattern);
}

void styleTabItems(TabItemAppearance& items)
{
    const QFont font = Font::boldSystemFont(10);
    items.normal = { unselectedTabColor(), { unselectedTabColor(), font } };
    items.selected = { ClassicUI::veskOrangeColor(), { ClassicUI::veskOrangeColor(), font } };
}

// The image view that shows the image: the given one if it is one, else a new one; null when there is no image.
View* imageViewShowing(const Image& image, View* current)
{
    if (image.isNull())
        return nullptr;
    auto* view = qobject_cast<ImageView*>(current);
    if (!view)
        return new ImageView(image);
    view->setImage(image);
    return view;
}

void styleBackgrounds(TableViewCell& cell, const QString& assetName)
{
    const Image normal = ClassicUI::stretchableAsset(assetName, rowInsets);
    const Image selected = ClassicUI::stretchableAsset(assetName + QStringLiteral("high"), rowInsets);
    cell.setBackgroundColor(Color::clear());
    cell.setBackgroundView(imageViewShowing(normal, cell.backgroundView()));
    cell.setSelectedBackgroundView(imageViewShowing(selected, cell.selectedBackgroundView()));
}

struct SharedIcons
{
    QNetworkAccessManager manager;
    IconLoader loader{ manager, IconLoader::Limits{} };
};

// The one loader of the program, with its cache. Its network works on a thread of its own, which ends while all that
// it uses is still there.
IconLoader& sharedIconLoader()
{
    static std::unique_ptr<SharedIcons> icons;
    if (!icons) {
        icons = std::make_unique<SharedIcons>();
        qAddPostRoutine([] { icons.reset(); });
    }
    return icons->loader;
}

} // namespace

Color ClassicUI::colorWithRed(unsigned red, unsigned green, unsigned blue, double alpha)
{
    return { red / wholeScale, green / wholeScale, blue / wholeScale, alpha, {} };
}

const Color& ClassicUI::veskBackgroundColor()
{
    static const Color color = makeBackgroundColor();
    return color;
}

Color ClassicUI::veskTextColor()
{
    return colorWithRed(25, 50, 80, 1);
}

Color ClassicUI::veskSecondaryTextColor()
{
    return colorWithRed(74, 84, 98, 1);
}

Color ClassicUI::veskBlueColor()
{
    return colorWithRed(48, 88, 145, 1);
}

Color ClassicUI::veskOrangeColor()
{
    return colorWithRed(236, 129, 17, 1);
}

Image ClassicUI::assetNamed(const QString& name)
{
    return Image::named(name);
}

Image ClassicUI::stretchableAsset(const QString& name, const EdgeInsets& capInsets)
{
    const Image image = assetNamed(name);
    return image.isNull() ? image : image.resizable(capInsets, Image::ResizingMode::Stretch);
}

void ClassicUI::styleNavigationController(NavigationController& controller)
{
    NavigationBar* bar = controller.navigationBar();
    bar->setTranslucent(false);
    bar->setTintColor(Color::white());
    bar->setBarStyle(BarStyle::Black);

    BarAppearance appearance;
    appearance.configureWithOpaqueBackground();
    appearance.backgroundImage = stretchableAsset(QStringLiteral("topfade"), barInsets);
    appearance.backgroundColor = colorWithRed(100, 123, 151, 1);
    appearance.shadowColor = colorWithRed(44, 54, 66, 1);
    appearance.titleTextAttributes = { Color::white(), Font::boldSystemFont(18) };
    bar->setStandardAppearance(appearance);
    bar->setScrollEdgeAppearance(appearance);
}

void ClassicUI::styleTabBarController(TabBarController& controller)
{
    TabBar* bar = controller.tabBar();
    bar->setTranslucent(false);
    bar->setTintColor(veskOrangeColor());
    bar->setUnselectedItemTintColor(unselectedTabColor());

    TabBarAppearance appearance;
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

void ClassicUI::styleTableView(TableView& table)
{
    table.setBackgroundColor(veskBackgroundColor());
    table.setSeparatorColor(colorWithRed(153, 153, 153, 0.72));
    table.setSeparatorInset({});
    table.setRowHeight(60);
    table.setEstimatedRowHeight(60);
    table.setSectionHeaderHeight(headerHeight);
    table.setEstimatedSectionHeaderHeight(headerHeight);
    // Not 0, which would ask the platform for its own footer height.
    table.setSectionFooterHeight(nearlyNothing);
    table.setEstimatedSectionFooterHeight(nearlyNothing);
    table.setTableFooterView(new View);
    table.setDelaysContentTouches(false);
}

void ClassicUI::styleCell(TableViewCell& cell, int variant)
{
    styleBackgrounds(cell, variant % 2 == 0 ? QStringLiteral("cellback1") : QStringLiteral("cellback2"));
    cell.textLabel()->setTextColor(veskTextColor());
    cell.textLabel()->setFont(Font::boldSystemFont(15));
    if (Label* detail = cell.detailTextLabel()) {
        detail->setTextColor(veskSecondaryTextColor());
        detail->setFont(Font::systemFont(12));
    }
    cell.setAccessoryType(TableViewCell::AccessoryType::DisclosureIndicator);
    cell.setTintColor(veskBlueColor());
    cell.setLayoutMargins({ 0, 10, 0, 10 });
    cell.setSeparatorInset({ 0, 10, 0, 10 });
}

View* ClassicUI::sectionHeaderViewWithTitle(const QString& title, double width)
{
    const double height = TextScale::grown(headerHeight);
    auto* header = new View({ 0, 0, width, height });
    header->setBackgroundColor(colorWithRed(150, 164, 178, 1));
    header->setGradient({ colorWithRed(173, 184, 195, 1), colorWithRed(117, 132, 149, 1) });

    auto* label = new Label({ headerMargin, 0, std::max(0.0, width - 2 * headerMargin), height });
    label->setText(title.toUpper());
    label->setTextColor(Color::white());
    label->setFont(Font::boldSystemFont(12));
    label->setShadow(Label::Shadow::Below, shadow());
    label->setAccessibilityElement(false);
    header->setAccessibilityLabel(label->text());
    header->addSubview(label);
    return header;
}

Button* ClassicUI::classicButtonWithTitle(const QString& title, ButtonKind kind)
{
    auto* button = new Button;
    const QString asset
        = kind == ButtonKind::Destructive ? QStringLiteral("buttonbackred") : QStringLiteral("buttonback");
    button->setBackgroundImage(stretchableAsset(asset, rowInsets));
    button->setTitle(title);
    button->setTitleColor(Color::white());
    button->titleLabel()->setFont(Font::boldSystemFont(14));
    // Above the letters, which look engraved by it.
    button->titleLabel()->setShadow(Label::Shadow::Above, shadow());
    button->setContentEdgeInsets({ 4, 12, 4, 12 });
    return button;
}

void ClassicUI::loadIconForPackage(const VeskPackage& package, ImageView& imageView)
{
    imageView.setImage(assetNamed(QStringLiteral("Homepage")));
    imageView.setContentMode(ImageView::ContentMode::AspectFit);
    const QScreen* screen = QGuiApplication::primaryScreen();
    sharedIconLoader().load(package.iconURLString(), screen ? screen->devicePixelRatio() : 1, imageView);
}
