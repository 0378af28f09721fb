#include "catalog/query/SearchText.h"

#include "catalog/query/ByteSearch.h"
#include "catalog/text/TextDecoding.h"

#include <algorithm>

namespace {

constexpr char endOfField = '\xff';

bool isAscii(std::string_view text)
{
    unsigned char bits = 0;
    for (const char c : text)
        bits |= static_cast<unsigned char>(c);
    return bits < 0x80;
}

char lowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// Lower-casing a text moves the rest of it for each letter that grows: in a long text of such letters that would take
// time in proportion to the square of the length. No letter's lower case depends on its neighbours, so pieces do.
QByteArray lowered(QStringView text)
{
    constexpr qsizetype pieceSize = 256;
    QByteArray utf8;
    while (!text.empty()) {
        qsizetype size = std::min(text.size(), pieceSize);
        if (size < text.size() && text[size].isLowSurrogate() && text[size - 1].isHighSurrogate())
            --size;
        utf8 += text.first(size).toString().toLower().toUtf8();
        text = text.sliced(size);
    }
    return utf8;
}

} // namespace

void SearchText::add(const VeskPackage& package)
{
    const std::string_view name = package.utf8(VeskPackage::Text::Name);
    const std::string_view packageID = package.utf8(VeskPackage::Text::PackageID);
    addField(name);
    if (packageID != name)
        addField(packageID);
    addField(package.utf8(VeskPackage::Text::Desc));
    addField(package.utf8(VeskPackage::Text::Author));
    m_ends.push_back(static_cast<std::uint32_t>(m_text.size()));
}

void SearchText::shrink()
{
    m_text.squeeze();
    m_ends.shrink_to_fit();
}

QByteArray SearchText::folded(const QString& query)
{
    return query.isValidUtf16() ? lowered(query) : QByteArray();
}

std::vector<std::uint32_t> SearchText::find(std::string_view foldedQuery) const
{
    std::vector<std::uint32_t> found;
    std::uint32_t package = 0;
    // One match in a package is enough: the next one is looked for behind its end.
    findEach(viewOf(m_text), BytePattern(foldedQuery), [&](std::size_t at) -> std::size_t {
        while (m_ends[package] <= at)
            ++package;
        found.push_back(package);
        return m_ends[package];
    });
    return found;
}

void SearchText::addField(std::string_view utf8)
{
    if (utf8.empty())
        return;
    if (isAscii(utf8)) {
        const qsizetype at = m_text.size();
        m_text.resize(at + static_cast<qsizetype>(utf8.size()));
        std::transform(utf8.begin(), utf8.end(), m_text.data() + at, lowerAscii);
    } else {
        m_text.append(lowered(textOf(utf8)));
    }
    m_text.append(endOfField);
}
