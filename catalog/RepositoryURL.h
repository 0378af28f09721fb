#pragma once

#include <QString>
#include <QUrl>

#include <optional>

// A URL that keeps the text it was made from: its absolute string is that text, never a normalised one.
// Made by the lenient rule of the platform this program comes from: a text with a blank or control character, an empty
// or a null text gives none.
class RepositoryURL
{
public:
    static std::optional<RepositoryURL> fromString(const QString& text);

    const QString& absoluteString() const { return m_text; }
    QString scheme() const { return m_url.scheme(); }
    // Null when there is no host.
    QString host() const { return m_url.host().isEmpty() ? QString() : m_url.host(); }
    // What a network request is made with.
    const QUrl& url() const { return m_url; }

private:
    RepositoryURL(QString text, QUrl url)
        : m_text(std::move(text))
        , m_url(std::move(url))
    {
    }

    QString m_text;
    QUrl m_url;
};
