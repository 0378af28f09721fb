#include "ui/kit/spoken/FieldInterface.h"

#include "ui/kit/spoken/SpokenPlace.h"

#include <QQuickWindow>

namespace kit {

// MARK: the object

QWindow* FieldInterface::window() const
{
    return field().window();
}

QRect FieldInterface::rect() const
{
    return SpokenPlace::rectOf(field());
}

QAccessibleInterface* FieldInterface::parent() const
{
    return SpokenPlace::around(field());
}

QAccessible::State FieldInterface::state() const
{
    const QObject* const said = SpokenPlace::saidOf(field());
    QAccessible::State state = SpokenPlace::stateOf(field());
    state.editable = true;
    state.selectableText = true;
    state.focusable = field().isEnabled();
    state.focused = field().hasActiveFocus();
    state.searchEdit = said && said->property("searchEdit").toBool();
    return state;
}

QString FieldInterface::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Value)
        return written();
    const QObject* const said = SpokenPlace::saidOf(field());
    return said && kind == QAccessible::Name ? said->property("name").toString() : QString();
}

void FieldInterface::setText(QAccessible::Text kind, const QString& text)
{
    if (kind == QAccessible::Value && field().isEnabled())
        field().setProperty("text", text);
}

void* FieldInterface::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface*>(this);
    return QAccessibleObject::interface_cast(type);
}

QStringList FieldInterface::actionNames() const
{
    return field().isEnabled() ? QStringList{ setFocusAction() } : QStringList();
}

void FieldInterface::doAction(const QString& name)
{
    if (actionNames().contains(name))
        field().forceActiveFocus();
}

// MARK: reading

void FieldInterface::selection(int index, int* begin, int* end) const
{
    *begin = index == 0 ? field().property("selectionStart").toInt() : 0;
    *end = index == 0 ? field().property("selectionEnd").toInt() : 0;
}

int FieldInterface::selectionCount() const
{
    return field().property("selectedText").toString().isEmpty() ? 0 : 1;
}

void FieldInterface::removeSelection(int index)
{
    if (index == 0)
        QMetaObject::invokeMethod(&field(), "deselect");
}

void FieldInterface::setSelection(int index, int begin, int end)
{
    if (index == 0)
        QMetaObject::invokeMethod(&field(), "select", Q_ARG(int, begin), Q_ARG(int, end));
}

int FieldInterface::cursorPosition() const
{
    return field().property("cursorPosition").toInt();
}

void FieldInterface::setCursorPosition(int position)
{
    field().setProperty("cursorPosition", position);
}

QString FieldInterface::text(int begin, int end) const
{
    return written().mid(begin, end - begin);
}

int FieldInterface::characterCount() const
{
    return static_cast<int>(written().size());
}

QRect FieldInterface::characterRect(int place) const
{
    QRectF inField;
    QMetaObject::invokeMethod(&field(), "positionToRectangle", Q_RETURN_ARG(QRectF, inField), Q_ARG(int, place));
    const QPoint origin = window() ? window()->mapToGlobal(QPoint(0, 0)) : QPoint();
    return field().mapRectToScene(inField).toRect().translated(origin);
}

int FieldInterface::offsetAtPoint(const QPoint& point) const
{
    const QPointF inField = field().mapFromGlobal(QPointF(point));
    for (int place = 0; place < characterCount(); ++place)
        if (characterRect(place + 1).left() > point.x())
            return field().contains(inField) ? place : -1;
    return -1;
}

QString FieldInterface::attributes(int /*place*/, int* begin, int* end) const
{
    *begin = 0;
    *end = characterCount();
    return {};
}

// MARK: writing

void FieldInterface::deleteText(int begin, int end)
{
    replaceText(begin, end, {});
}

void FieldInterface::insertText(int place, const QString& text)
{
    replaceText(place, place, text);
}

void FieldInterface::replaceText(int begin, int end, const QString& text)
{
    if (!field().isEnabled())
        return;
    QMetaObject::invokeMethod(&field(), "remove", Q_ARG(int, begin), Q_ARG(int, end));
    QMetaObject::invokeMethod(&field(), "insert", Q_ARG(int, begin), Q_ARG(QString, text));
}

} // namespace kit
