#pragma once

#include "catalog/records/VeskCategory.h"
#include "catalog/records/VeskPackage.h"
#include "ui/kit/table/TableView.h"

// The rows that several screens have in common.
namespace ScreenRows {

// A "PackageCell" that shows the package; row is its index.
kit::TableViewCell* packageRow(kit::TableView& table, const VeskPackage& package, int row);

// A "CategoryCell" with the category's name, count and the home picture.
kit::TableViewCell* categoryRow(kit::TableView& table, const VeskCategory& category, int row);

// The single row of a table that has nothing to show: an "EmptyCell" with a centred text and no accessory.
kit::TableViewCell* emptyRow(kit::TableView& table, const QString& text);

// The same as a "CategoryCell": a reused one keeps its count and its picture.
kit::TableViewCell* emptyCategoryRow(kit::TableView& table, const QString& text);

// What the rows of the two show in their first line, for rows that are not seen; null without a record.
QString nameOf(const VeskPackagePtr& package);
QString nameOf(const VeskCategoryPtr& category);

} // namespace ScreenRows
