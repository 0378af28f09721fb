#include "ScreenRows.h"

#include "ClassicPackageCell.h"
#include "ClassicUI.h"

namespace {

const QString CategoryCell = QStringLiteral("CategoryCell");

void showOnlyText(TableViewCell& cell, const QString& text)
{
    ClassicUI::styleCell(cell, 0);
    cell.textLabel()->setText(text);
    cell.textLabel()->setTextAlignment(Qt::AlignHCenter);
    cell.setAccessoryType(TableViewCell::AccessoryType::None);
}

} // namespace

TableViewCell* ScreenRows::packageRow(TableView& table, const VeskPackage& package, int row)
{
    auto* cell = table.dequeueCell<ClassicPackageCell>(QStringLiteral("PackageCell"), TableViewCell::Style::Subtitle);
    cell->configureWithPackage(package, row);
    return cell;
}

TableViewCell* ScreenRows::categoryRow(TableView& table, const VeskCategory& category, int row)
{
    auto* cell = table.dequeueCell<TableViewCell>(CategoryCell, TableViewCell::Style::Value1);
    ClassicUI::styleCell(*cell, row);
    cell->textLabel()->setText(category.name());
    // The cell may have served as an empty row, which is centred.
    cell->textLabel()->setTextAlignment(Qt::AlignLeft);
    cell->detailTextLabel()->setText(QString::number(category.count()));
    cell->imageView()->setImage(ClassicUI::assetNamed(QStringLiteral("Homepage")));
    return cell;
}

TableViewCell* ScreenRows::emptyRow(TableView& table, const QString& text)
{
    auto* cell = table.dequeueCell<TableViewCell>(QStringLiteral("EmptyCell"), TableViewCell::Style::Default);
    showOnlyText(*cell, text);
    return cell;
}

TableViewCell* ScreenRows::emptyCategoryRow(TableView& table, const QString& text)
{
    auto* cell = table.dequeueCell<TableViewCell>(CategoryCell, TableViewCell::Style::Value1);
    showOnlyText(*cell, text);
    return cell;
}
