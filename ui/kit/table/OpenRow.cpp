#include "ui/kit/table/OpenRow.h"

#include "ui/kit/table/TableHost.h"
#include "ui/kit/table/TableViewDelegate.h"

namespace kit {

bool OpenRow::canDelete(int section, int row) const
{
    return m_table.hasRow({ section, row }) && m_table.delegate().canEditRowAtIndexPath({ section, row });
}

void OpenRow::open(int section, int row)
{
    setOpen(canDelete(section, row) ? IndexPath{ section, row } : NoRow);
}

bool OpenRow::close()
{
    const bool wasOpen = isOpen();
    setOpen(NoRow);
    return wasOpen;
}

void OpenRow::deleteRow(int section, int row)
{
    if (!canDelete(section, row))
        return;
    setOpen(NoRow);
    m_table.delegate().commitEditingStyle(EditingStyle::Delete, { section, row });
}

void OpenRow::setOpen(const IndexPath& indexPath)
{
    if (m_open == indexPath)
        return;
    m_open = indexPath;
    Q_EMIT changed();
}

} // namespace kit
