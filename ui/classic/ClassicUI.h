#pragma once

#include "Button.h"
#include "Color.h"
#include "Image.h"
#include "NavigationController.h"
#include "TabBarController.h"
#include "TableView.h"
#include "VeskPackage.h"

// The classic look: its palette, its image assets and the styling of bars, tables, rows, section headers and buttons.
// Class operations without state, but for the background colour and the icon loader, each made once. A missing asset is
// never an error: what it would fill shows its colour alone. Main thread.
class ClassicUI
{
public:
    enum class ButtonKind { Normal, Destructive };

    // Components on the scale of 0 to 255, neither rounded nor clamped; alpha from 0 to 1.
    static Color colorWithRed(unsigned red, unsigned green, unsigned blue, double alpha);

    // The page: a tiled asset. The one shared colour; safe from any thread.
    static const Color& veskBackgroundColor();
    static Color veskTextColor();
    static Color veskSecondaryTextColor();
    static Color veskBlueColor();
    static Color veskOrangeColor();

    // None when there is no such asset.
    static Image assetNamed(const QString& name);
    static Image stretchableAsset(const QString& name, const EdgeInsets& capInsets);

    static void styleNavigationController(NavigationController& controller);
    static void styleTabBarController(TabBarController& controller);
    static void styleTableView(TableView& table);
    // The variant is the row's index in its section, or 0; only its parity counts.
    static void styleCell(TableViewCell& cell, int variant);

    // New views, which the caller owns.
    static View* sectionHeaderViewWithTitle(const QString& title, double width);
    static Button* classicButtonWithTitle(const QString& title, ButtonKind kind);

    // Shows the placeholder at once and the package's icon as soon as it is there. The view may go away meanwhile.
    static void loadIconForPackage(const VeskPackage& package, ImageView& imageView);
};
