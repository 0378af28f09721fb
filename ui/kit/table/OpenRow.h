#pragma once

#include "ui/kit/paint/Geometry.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace kit {

class TableHost;

// The one row of a table that stands open for deletion: its delete button shows. Lives as long as its table.
class OpenRow : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(KitOpenRow)
    QML_UNCREATABLE("belongs to its table")
    Q_PROPERTY(int section READ section NOTIFY changed)
    Q_PROPERTY(int row READ row NOTIFY changed)

public:
    explicit OpenRow(TableHost& table)
        : m_table(table)
    {
    }

    // Both negative while none is open.
    int section() const { return m_open.section; }
    int row() const { return m_open.row; }
    bool isOpen() const { return m_open != NoRow; }

    Q_INVOKABLE bool canDelete(int section, int row) const;
    // Closes any other; a row that cannot be deleted, or a negative one, only does that.
    Q_INVOKABLE void open(int section, int row);
    // False if none was open.
    Q_INVOKABLE bool close();
    // Closes the open row and asks the delegate to delete that one, if it can be.
    Q_INVOKABLE void deleteRow(int section, int row);

Q_SIGNALS:
    void changed();

private:
    void setOpen(const IndexPath& indexPath);

    TableHost& m_table;
    IndexPath m_open = NoRow;
};

} // namespace kit
