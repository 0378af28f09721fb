#pragma once

#include "ui/kit/paint/Color.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace kit {

// The field of a search controller. Its text changes as a person types, clears or cancels.
class SearchBar : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(QString placeholder READ placeholder NOTIFY searchBarChanged)
    Q_PROPERTY(QColor tint READ tint NOTIFY searchBarChanged)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged)

public:
    using QObject::QObject;

    const QString& placeholder() const { return m_placeholder; }
    void setPlaceholder(const QString& placeholder);
    const Color& tintColor() const { return m_tintColor; }
    void setTintColor(const Color& color);
    const QString& text() const { return m_text; }
    void setText(const QString& text);
    // While active the field has the focus and offers to cancel.
    bool isActive() const { return m_active; }
    void setActive(bool active);
    // Empties the field and leaves it. Told as a change of the text, also of an empty one.
    Q_INVOKABLE void cancel();

    QColor tint() const { return m_tintColor.toQColor(); }

Q_SIGNALS:
    void searchBarChanged();
    void textChanged();
    void activeChanged();

private:
    QString m_placeholder;
    Color m_tintColor = Color::black();
    QString m_text;
    bool m_active = false;
};

// A search field in the navigation bar whose results show in the screen's own table.
class SearchController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made in C++")
    Q_PROPERTY(kit::SearchBar* searchBar READ searchBar CONSTANT)

public:
    explicit SearchController(QObject* parent = nullptr);

    SearchBar* searchBar() { return &m_searchBar; }
    // Called at any change of the field's text, and when the search is cancelled even if there was none.
    void setSearchResultsUpdater(std::function<void(SearchController*)> updater) { m_updater = std::move(updater); }
    bool obscuresBackgroundDuringPresentation() const { return m_obscuresBackground; }
    void setObscuresBackgroundDuringPresentation(bool obscures) { m_obscuresBackground = obscures; }

private:
    SearchBar m_searchBar;
    std::function<void(SearchController*)> m_updater;
    bool m_obscuresBackground = true;
};

} // namespace kit
