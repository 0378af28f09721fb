#pragma once

#include "ui/kit/paint/Geometry.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace kit {

class TableHost;

// The row of a table that the keyboard acts on, and how keys move it. A move scrolls the row into view; where a row is
// higher than the table, moves by a row or a page show the rest of it first. Lives as long as its table.
class RowFocus : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(KitRowFocus)
    QML_UNCREATABLE("belongs to its table")
    Q_PROPERTY(int section READ section NOTIFY changed)
    Q_PROPERTY(int row READ row NOTIFY changed)
    Q_PROPERTY(bool keyboardHere MEMBER m_keyboardHere NOTIFY keyboardHereChanged)

public:
    explicit RowFocus(TableHost& table)
        : m_table(table)
    {
    }

    // Both negative while no row has the focus.
    int section() const { return m_focused.section; }
    int row() const { return m_focused.row; }

    // By so many rows, over the sections' borders and held within the table. Without a focus yet it begins at what is
    // seen.
    Q_INVOKABLE void moveBy(int rows);
    Q_INVOKABLE void moveToFirst();
    Q_INVOKABLE void moveToLast();
    // Down by as many rows as are seen at once below the pinned header, or up (-1), and by one at least.
    Q_INVOKABLE void moveByPage(int direction);
    Q_INVOKABLE void moveTo(int section, int row);
    Q_INVOKABLE void clear();
    // To the next row whose name begins with what was typed in one go.
    Q_INVOKABLE void type(const QString& letters);
    // True for a while after letters were typed: a space goes on with them then.
    Q_INVOKABLE bool isTyping() const;
    // What a tap on the row does.
    Q_INVOKABLE void activate();
    // Shows the row's delete button, or does what it does if it shows already.
    Q_INVOKABLE void deleteRow();
    // Scrolls so that a row shows with its neighbours, for a control in it has the keyboard now.
    Q_INVOKABLE void reveal(int section, int row);
    // Asks for the window's keyboard focus.
    Q_INVOKABLE void takeKeyboard() { Q_EMIT keyboardWanted(); }

    // The rows were asked for anew.
    void holdWithinTable();
    // The focus passes to the row that takes the deleted one's place, or else to the one before.
    void closeGap(const IndexPath& deleted);

Q_SIGNALS:
    void changed();
    void keyboardHereChanged();
    void keyboardWanted();
    void scrolled();

private:
    // Content offsets at which the beginning of a row, below the pinned header, and its end just show.
    struct Offsets
    {
        double beginning;
        double end;
    };

    void setFocused(const IndexPath& indexPath);
    Offsets offsetsShowing(const IndexPath& indexPath) const;
    void scrollIntoView(const IndexPath& indexPath);
    void scrollTo(double offset);
    bool showMoreOfRow(double share);
    void tellScroll(double before);
    QString nameOf(const IndexPath& indexPath) const;

    TableHost& m_table;
    IndexPath m_focused = NoRow;
    bool m_keyboardHere = false;
    QString m_typed;
    QElapsedTimer m_sinceTyped;
};

} // namespace kit
