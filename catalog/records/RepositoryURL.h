#pragma once

#include <QString>
#include <QUrl>

#include <optional>

// A URL that keeps the text it was made from: its absolute string is that text, never a normalised one.
// The rule is lenient, that of RFC 3986 with letters of all scripts allowed; there need be no scheme and no host. A
// null or an empty text, a blank or control character, one of "<>\^`{|}, a percent sign without two hexadecimal digits
// behind it, half a character pair, and a host or port that cannot be one give none.
// What may be added as a source is decided by RepoManager::addRepositoryWithURLString(), what may be fetched by
// http/WebAddress.h.
class RepositoryURL
{
public:
    static std::optional<RepositoryURL> fromString(const QString& text);

    const QString& absoluteString() const { return m_text; }
    // In lower case; empty when there is none.
    QString scheme() const { return m_url.scheme(); }
    // As it stands in the text, without user, port and brackets; null when there is none.
    QString host() const;
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
