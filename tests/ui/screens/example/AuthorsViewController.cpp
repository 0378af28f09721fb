#include "tests/ui/screens/example/AuthorsViewController.h"

#include "ui/classic/ClassicUI.h"
#include "ui/screens/shared/ScreenRows.h"

#include <algorithm>
#include <iterator>

AuthorsViewController::AuthorsViewController(RepoManager& manager)
    : m_manager(manager)
{
}

void AuthorsViewController::viewDidLoad()
{
    kit::TableViewController::viewDidLoad();
    setTitle(QStringLiteral("Authors"));
    ClassicUI::styleTableView(*tableView());
}

void AuthorsViewController::viewWillAppear()
{
    kit::TableViewController::viewWillAppear();
    m_packagesOfAuthors.clear();
    for (const VeskPackagePtr& package : m_manager.packages())
        ++m_packagesOfAuthors[package->author()];
    tableView()->reloadData();
}

int AuthorsViewController::numberOfRowsInSection(int) const
{
    return std::max(1, static_cast<int>(m_packagesOfAuthors.size()));
}

kit::TableViewCell* AuthorsViewController::cellForRowAtIndexPath(const kit::IndexPath& indexPath)
{
    if (m_packagesOfAuthors.empty())
        return ScreenRows::emptyRow(*tableView(), QStringLiteral("Refresh Vesk to load authors"));
    auto* cell
        = tableView()->dequeueCell<kit::TableViewCell>(QStringLiteral("AuthorCell"), kit::TableViewCell::Style::Value1);
    ClassicUI::styleCell(*cell, indexPath.row);
    const auto& [author, count] = *std::next(m_packagesOfAuthors.begin(), indexPath.row);
    cell->textLabel()->setText(author);
    cell->detailTextLabel()->setText(QString::number(count));
    return cell;
}
