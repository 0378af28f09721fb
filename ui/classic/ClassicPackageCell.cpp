#include "ui/classic/ClassicPackageCell.h"

#include "ui/classic/BulletText.h"
#include "ui/classic/ClassicUI.h"
#include "ui/kit/text/TextScale.h"

#include <algorithm>
#include <cmath>

namespace {

QString subtitleOf(const VeskPackage& package)
{
    const QString repositoryName = package.repository() ? package.repository()->name() : QString();
    const QString source = package.author().isEmpty() ? repositoryName : package.author();
    const QString version = package.version().isEmpty() ? QStringLiteral("") : package.version();
    // The bullet stays where there is no version to follow it: part of the look.
    return source.isEmpty() ? version : joinedWithBullet(source, version);
}

// The row itself speaks the meaning: see CellView.qml.
kit::ImageView* badge(const QString& symbol, const kit::Color& color, const QString& meaning)
{
    auto* view = new kit::ImageView(kit::Image::systemNamed(symbol));
    view->setTintColor(color);
    view->setAccessibilityLabel(meaning);
    view->setAccessibilityElement(false);
    return view;
}

} // namespace

ClassicPackageCell::ClassicPackageCell(Style, const QString& reuseIdentifier)
    : kit::TableViewCell(Style::Subtitle, reuseIdentifier)
{
    imageView()->setImage(ClassicUI::assetNamed(QStringLiteral("Homepage")));
}

QString ClassicPackageCell::nameOf(const VeskPackage& package)
{
    return package.name().isEmpty() ? package.packageID() : package.name();
}

void ClassicPackageCell::configureWithPackage(const VeskPackage& package, int variant)
{
    ClassicUI::styleCell(*this, variant);
    textLabel()->setText(nameOf(package));
    detailTextLabel()->setText(subtitleOf(package));
    m_representedIconURL = package.iconURLString();
    ClassicUI::loadIconForPackage(package, *imageView());
    imageView()->setCornerRadius(7);
    imageView()->setClipsToBounds(true);
    showBadge(package);
}

void ClassicPackageCell::showBadge(const VeskPackage& package)
{
    kit::ImageView* view = nullptr;
    if (package.hasUpdate())
        view = badge(
            QStringLiteral("arrow.up.circle.fill"), ClassicUI::veskOrangeColor(), QStringLiteral("update available"));
    else if (package.installed())
        view = badge(QStringLiteral("checkmark.circle.fill"), ClassicUI::veskBlueColor(), QStringLiteral("installed"));
    setAccessoryView(view);
    setAccessoryType(view ? AccessoryType::None : AccessoryType::DisclosureIndicator);
}

void ClassicPackageCell::prepareForReuse()
{
    kit::TableViewCell::prepareForReuse();
    m_representedIconURL = QString();
    imageView()->setImage(ClassicUI::assetNamed(QStringLiteral("Homepage")));
    setAccessoryView(nullptr);
    setAccessoryType(AccessoryType::DisclosureIndicator);
}

void ClassicPackageCell::layOutContents()
{
    const double textWidth = std::max(0.0, contentView()->width() - 110);
    const double nameHeight = std::round(22 * kit::TextScale::value());
    const double detailHeight = std::round(18 * kit::TextScale::value());
    const double rowHeight = kit::TextScale::grown(60);
    const double top = std::floor((rowHeight - nameHeight - detailHeight) / 2) + 1;
    imageView()->setFrame({ 12, std::floor((rowHeight - 42) / 2), 42, 42 });
    textLabel()->setFrame({ 66, top, textWidth, nameHeight });
    detailTextLabel()->setFrame({ 66, top + nameHeight, textWidth, detailHeight });
}
