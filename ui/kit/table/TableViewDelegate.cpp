#include "ui/kit/table/TableViewDelegate.h"

namespace kit {

namespace {

class NoRows : public TableViewDelegate
{
public:
    int numberOfSections() const override { return 0; }
    int numberOfRowsInSection(int /*section*/) const override { return 0; }
    TableViewCell* cellForRowAtIndexPath(const IndexPath& /*indexPath*/) override { return nullptr; }
};

} // namespace

TableViewDelegate& TableViewDelegate::none()
{
    static NoRows none;
    return none;
}

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

QString TableViewDelegate::nameForRowAtIndexPath(const IndexPath& /*indexPath*/) const
{
    return {};
}

void TableViewDelegate::didSelectRowAtIndexPath(const IndexPath& /*indexPath*/) { }

bool TableViewDelegate::canEditRowAtIndexPath(const IndexPath& /*indexPath*/) const
{
    return false;
}

void TableViewDelegate::commitEditingStyle(EditingStyle /*style*/, const IndexPath& /*indexPath*/) { }

} // namespace kit
