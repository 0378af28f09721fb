#pragma once

#include "catalog/records/VeskPackage.h"
#include "http/request/Network.h"
#include "ui/kit/navigation/NavigationController.h"
#include "ui/kit/navigation/TabBarController.h"
#include "ui/kit/paint/Color.h"
#include "ui/kit/paint/Image.h"
#include "ui/kit/table/TableView.h"
#include "ui/kit/view/Button.h"

// The classic look: its palette (that of alerts, fields and switches is ui/kit/paint/KitLook.h), its image assets and
// the styling of bars, tables, rows, section headers and buttons. Class operations without state, but for the
// background colour and the icon loader, each made once. A missing asset is never an error: what it would fill shows
// its colour alone. Main thread.
class ClassicUI
{
public:
    // Points, at the usual text size.
    static constexpr double sectionHeaderHeight = 25;

    enum class ButtonKind { Normal, Destructive };

    // Components on the scale of 0 to 255, neither rounded nor clamped; alpha from 0 to 1.
    static kit::Color colorWithRed(unsigned red, unsigned green, unsigned blue, double alpha);

    // The page: a tiled asset. The one shared colour; safe from any thread.
    static const kit::Color& veskBackgroundColor();
    static kit::Color veskTextColor();
    static kit::Color veskSecondaryTextColor();
    static kit::Color veskBlueColor();
    static kit::Color veskOrangeColor();
    // What cannot be undone, and what has failed.
    static kit::Color veskRedColor();

    // None when there is no such asset.
    static kit::Image assetNamed(const QString& name);
    static kit::Image stretchableAsset(const QString& name, const kit::EdgeInsets& capInsets);

    static void styleNavigationController(kit::NavigationController& controller);
    static void styleTabBarController(kit::TabBarController& controller);
    static void styleTableView(kit::TableView& table);
    // The variant is the row's index in its section, or 0; only its parity counts. A row without the usual arrow says
    // so here: an accessory that goes again at once has been made and drawn.
    static void styleCell(kit::TableViewCell& cell, int variant,
        kit::TableViewCell::AccessoryType accessory = kit::TableViewCell::AccessoryType::DisclosureIndicator);

    // New views, which the caller owns.
    static kit::View* sectionHeaderViewWithTitle(const QString& title, double width);
    static kit::Button* classicButtonWithTitle(const QString& title, ButtonKind kind);

    // What icons are loaded over from now on. It must stay until another one, or null, is set; without one, every
    // package keeps the placeholder. Icons that are on their way are dropped, those in memory too.
    static void setIconNetwork(http::Network* network);
    // Shows the placeholder at once and the package's icon as soon as it is there. The view may go away meanwhile.
    static void loadIconForPackage(const VeskPackage& package, kit::ImageView& imageView);
};
