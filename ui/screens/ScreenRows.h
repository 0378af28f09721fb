#pragma once

#include "TableView.h"
#include "VeskCategory.h"
#include "VeskPackage.h"

// The rows that several screens have in common.
namespace ScreenRows {

// A "PackageCell" that shows the package; row is its index.
TableViewCell* packageRow(TableView& table, const VeskPackage& package, int row);

// A "CategoryCell" with the category's name, count and the home picture.
TableViewCell* categoryRow(TableView& table, const VeskCategory& category, int row);

// The single row of a table that has nothing to show: an "EmptyCell" with a centred text and no accessory.
TableViewCell* emptyRow(TableView& table, const QString& text);

// The same as a "CategoryCell": a reused one keeps its count and its picture.
TableViewCell* emptyCategoryRow(TableView& table, const QString& text);

} // namespace ScreenRows
