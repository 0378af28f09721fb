#pragma once

#include "catalog/records/RepositoryURL.h"

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

class VeskRepository;
using VeskRepositoryPtr = std::shared_ptr<VeskRepository>;

// One configured source. Two records are the same only when they are the same object.
// Texts: a null QString is "none", an empty one is an empty text. Used on the main thread.
class VeskRepository
{
public:
    // A record with the given root URL text and enabled set. A null name becomes the last path component of the text.
    static VeskRepositoryPtr repositoryWithURLString(const QString& urlString, const QString& name);

    const QString& name() const { return m_name; }
    const QString& urlString() const { return m_urlString; }
    // Parsed afresh from urlString() on every call; none when that is empty or unacceptable.
    std::optional<RepositoryURL> url() const { return RepositoryURL::fromString(m_urlString); }
    const QString& origin() const { return m_origin; }
    const QString& repoDescription() const { return m_repoDescription; }
    const QString& iconURLString() const { return m_iconURLString; }
    bool enabled() const { return m_enabled; }
    // When this source's index was last fetched and merged; invalid until then, and never stored.
    const QDateTime& lastRefresh() const { return m_lastRefresh; }

    void setName(const QString& name) { m_name = name; }
    void setUrlString(const QString& urlString) { m_urlString = urlString; }
    void setOrigin(const QString& origin) { m_origin = origin; }
    void setRepoDescription(const QString& description) { m_repoDescription = description; }
    void setIconURLString(const QString& urlString) { m_iconURLString = urlString; }
    void setEnabled(bool enabled) { m_enabled = enabled; }
    void setLastRefresh(const QDateTime& lastRefresh) { m_lastRefresh = lastRefresh; }

private:
    QString m_name;
    QString m_urlString;
    QString m_origin;
    QString m_repoDescription;
    QString m_iconURLString;
    bool m_enabled = false;
    QDateTime m_lastRefresh;
};
