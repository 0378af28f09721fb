#include "catalog/records/RepositoryURL.h"

#include <QStringView>

#include <algorithm>

namespace {

bool isRefused(QChar c)
{
    return c.isSpace() || c.unicode() < 0x20 || c.unicode() == 0x7f || QStringView(u"\"<>\\^`{|}").contains(c);
}

bool isHexadecimal(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

bool hasSoundPercentSigns(const QString& text)
{
    for (qsizetype at = text.indexOf(u'%'); at >= 0; at = text.indexOf(u'%', at + 1)) {
        if (at + 2 >= text.size() || !isHexadecimal(text[at + 1]) || !isHexadecimal(text[at + 2]))
            return false;
    }
    return true;
}

QStringView upToFirstOf(QStringView text, QStringView ends)
{
    const auto end = std::find_first_of(text.begin(), text.end(), ends.begin(), ends.end());
    return text.first(end - text.begin());
}

} // namespace

std::optional<RepositoryURL> RepositoryURL::fromString(const QString& text)
{
    if (text.isEmpty() || !text.isValidUtf16() || std::any_of(text.begin(), text.end(), isRefused)
        || !hasSoundPercentSigns(text))
        return std::nullopt;
    const QUrl url(text, QUrl::TolerantMode);
    if (!url.isValid())
        return std::nullopt;
    return RepositoryURL(text, url);
}

QString RepositoryURL::host() const
{
    if (m_url.host().isEmpty())
        return {};
    const QStringView text(m_text);
    QStringView authority = upToFirstOf(text.mid(text.indexOf(u"//") + 2), u"/?#");
    authority = authority.mid(authority.lastIndexOf(u'@') + 1);
    if (authority.startsWith(u'['))
        return upToFirstOf(authority.mid(1), u"]").toString();
    return upToFirstOf(authority, u":").toString();
}
