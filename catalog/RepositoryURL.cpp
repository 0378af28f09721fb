#include "RepositoryURL.h"

#include <algorithm>

std::optional<RepositoryURL> RepositoryURL::fromString(const QString& text)
{
    const auto isRefused = [](QChar c) { return c.isSpace() || c.unicode() < 0x20 || c.unicode() == 0x7f; };
    if (text.isEmpty() || std::any_of(text.begin(), text.end(), isRefused))
        return std::nullopt;
    const QUrl url(text, QUrl::TolerantMode);
    if (!url.isValid())
        return std::nullopt;
    return RepositoryURL(text, url);
}
