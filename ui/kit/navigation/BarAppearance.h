#pragma once

#include "ui/kit/paint/Color.h"
#include "ui/kit/text/Font.h"

namespace kit {

// How text and icons of a bar look.
struct TextAttributes
{
    Color foregroundColor = Color::white();
    QFont font = Font::boldSystemFont(17);
};

// The look of a navigation bar: a background image stretched over a background colour, and a hairline at its edge.
struct BarAppearance
{
    enum class Background { Opaque, Transparent };

    void configureWithOpaqueBackground() { background = Background::Opaque; }

    Background background = Background::Transparent;
    Image backgroundImage;
    Color backgroundColor;
    Color shadowColor;
    TextAttributes titleTextAttributes;
};

// The look of one state of a tab bar's items.
struct TabItemState
{
    Color iconColor;
    TextAttributes titleTextAttributes;
};

struct TabItemAppearance
{
    TabItemState normal;
    TabItemState selected;
};

// The look of a tab bar. Stacked items have their title below the icon, inline ones beside it.
struct TabBarAppearance : BarAppearance
{
    TabItemAppearance stackedLayoutAppearance;
    TabItemAppearance inlineLayoutAppearance;
    TabItemAppearance compactInlineLayoutAppearance;
};

} // namespace kit
