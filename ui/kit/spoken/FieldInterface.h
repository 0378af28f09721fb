#pragma once

#include <QAccessibleObject>
#include <QQuickItem>

namespace kit {

// What a screen reader gets for a field of one line. Qt's own interface lets it be read, but not written into by parts.
class FieldInterface : public QAccessibleObject,
                       public QAccessibleActionInterface,
                       public QAccessibleTextInterface,
                       public QAccessibleEditableTextInterface
{
public:
    // A TextInput of QML.
    explicit FieldInterface(QQuickItem* field)
        : QAccessibleObject(field)
    {
    }

    QWindow* window() const override;
    QRect rect() const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::EditableText; }
    QAccessible::State state() const override;
    // Its value is what stands in it.
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

    // Places count the letters before them.
    void selection(int index, int* begin, int* end) const override;
    int selectionCount() const override;
    void addSelection(int begin, int end) override { setSelection(0, begin, end); }
    void removeSelection(int index) override;
    void setSelection(int index, int begin, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int begin, int end) const override;
    int characterCount() const override;
    QRect characterRect(int place) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int begin, int /*end*/) override { setCursorPosition(begin); }
    QString attributes(int place, int* begin, int* end) const override;

    void deleteText(int begin, int end) override;
    void insertText(int place, const QString& text) override;
    void replaceText(int begin, int end, const QString& text) override;

private:
    QQuickItem& field() const { return *static_cast<QQuickItem*>(object()); }
    QString written() const { return field().property("text").toString(); }
};

} // namespace kit
