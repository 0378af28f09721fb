#include "TableViewDelegate.h"

View* TableViewDelegate::viewForHeaderInSection(int /*section*/)
{
    return nullptr;
}

double TableViewDelegate::heightForHeaderInSection(int /*section*/) const
{
    return -1;
}

double TableViewDelegate::heightForRowAtIndexPath(const IndexPath& /*indexPath*/) const
{
    return -1;
}

void TableViewDelegate::didSelectRowAtIndexPath(const IndexPath& /*indexPath*/) { }

bool TableViewDelegate::canEditRowAtIndexPath(const IndexPath& /*indexPath*/) const
{
    return false;
}

void TableViewDelegate::commitEditingStyle(EditingStyle /*style*/, const IndexPath& /*indexPath*/) { }
