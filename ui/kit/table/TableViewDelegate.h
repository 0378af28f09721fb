#pragma once

#include "ui/kit/paint/Geometry.h"

#include <QString>

namespace kit {

class TableViewCell;
class View;

enum class EditingStyle { Delete };

// What a table asks its screen. Only the rows, cells and what differs from the table's own settings need answers.
class TableViewDelegate
{
public:
    virtual ~TableViewDelegate() = default;

    // One without rows, for a table that has no screen.
    static TableViewDelegate& none();

    virtual int numberOfSections() const { return 1; }
    virtual int numberOfRowsInSection(int section) const = 0;
    // Owned by the table; got from its dequeueReusableCell(), or new. Null stands for an empty row.
    virtual TableViewCell* cellForRowAtIndexPath(const IndexPath& indexPath) = 0;
    // A new view, which the table takes, or null.
    virtual View* viewForHeaderInSection(int section);
    // A negative height stands for the table's own setting. Rows are asked for theirs only when they differ: a million
    // that do not are placed at no cost.
    virtual double heightForHeaderInSection(int section) const;
    virtual bool rowsDifferInHeight() const { return false; }
    virtual double heightForRowAtIndexPath(const IndexPath& indexPath) const;
    // By which a row is found that is not seen, when a person types its first letters; null where there is none.
    virtual QString nameForRowAtIndexPath(const IndexPath& indexPath) const;
    virtual void didSelectRowAtIndexPath(const IndexPath& indexPath);
    virtual bool canEditRowAtIndexPath(const IndexPath& indexPath) const;
    virtual void commitEditingStyle(EditingStyle style, const IndexPath& indexPath);
};

} // namespace kit
