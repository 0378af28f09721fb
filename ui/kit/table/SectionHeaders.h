#pragma once

#include "ui/kit/view/ObjectListModel.h"
#include "ui/kit/view/View.h"

#include <map>

namespace kit {

class TableHost;

// The header views of a table's sections, as its delegate makes them. Their heights come from the delegate or from
// TableView::setSectionHeaderHeight(), which Vesk's tables are given by ui/classic/ClassicUI.h. Lives as long as its
// table, which owns the views.
class SectionHeaders
{
public:
    explicit SectionHeaders(TableHost& table)
        : m_table(table)
    {
    }

    ObjectListModel* model() { return &m_model; }
    // Null for a section without one.
    View* headerOf(int section) const;
    // Asks for all of them anew. Those before go, unless they are like those that came: drawing a header takes ten
    // times as long as making one.
    void remake();
    // Where the table is scrolled to decides which of them is pinned.
    void place();

private:
    using Headers = std::map<int, View*>;

    Headers askForAll() const;
    void showAll(Headers headers);
    void dropAll();

    TableHost& m_table;
    Headers m_headers;
    ObjectListModel m_model;
};

} // namespace kit
