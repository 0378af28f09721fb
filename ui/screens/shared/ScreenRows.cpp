#include "ui/screens/shared/ScreenRows.h"

#include "ui/classic/ClassicPackageCell.h"
#include "ui/classic/ClassicUI.h"

namespace {

const QString CategoryCell = QStringLiteral("CategoryCell");

void showOnlyText(kit::TableViewCell& cell, const QString& text)
{
    ClassicUI::styleCell(cell, 0, kit::TableViewCell::AccessoryType::None);
    cell.textLabel()->setText(text);
    cell.textLabel()->setTextAlignment(Qt::AlignHCenter);
}

} // namespace

kit::TableViewCell* ScreenRows::packageRow(kit::TableView& table, const VeskPackage& package, int row)
{
    auto* cell
        = table.dequeueCell<ClassicPackageCell>(QStringLiteral("PackageCell"), kit::TableViewCell::Style::Subtitle);
    cell->configureWithPackage(package, row);
    return cell;
}

kit::TableViewCell* ScreenRows::categoryRow(kit::TableView& table, const VeskCategory& category, int row)
{
    auto* cell = table.dequeueCell<kit::TableViewCell>(CategoryCell, kit::TableViewCell::Style::Value1);
    ClassicUI::styleCell(*cell, row);
    cell->textLabel()->setText(category.name());
    // The cell may have served as an empty row, which is centred.
    cell->textLabel()->setTextAlignment(Qt::AlignLeft);
    cell->detailTextLabel()->setText(QString::number(category.count()));
    cell->imageView()->setImage(ClassicUI::assetNamed(QStringLiteral("Homepage")));
    return cell;
}

kit::TableViewCell* ScreenRows::emptyRow(kit::TableView& table, const QString& text)
{
    auto* cell = table.dequeueCell<kit::TableViewCell>(QStringLiteral("EmptyCell"), kit::TableViewCell::Style::Default);
    showOnlyText(*cell, text);
    return cell;
}

kit::TableViewCell* ScreenRows::emptyCategoryRow(kit::TableView& table, const QString& text)
{
    auto* cell = table.dequeueCell<kit::TableViewCell>(CategoryCell, kit::TableViewCell::Style::Value1);
    showOnlyText(*cell, text);
    return cell;
}

QString ScreenRows::nameOf(const VeskPackagePtr& package)
{
    return package ? ClassicPackageCell::nameOf(*package) : QString();
}

QString ScreenRows::nameOf(const VeskCategoryPtr& category)
{
    return category ? category->name() : QString();
}
