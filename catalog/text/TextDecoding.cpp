#include "catalog/text/TextDecoding.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

constexpr std::uint64_t highBits = 0x8080808080808080;

bool isAsciiSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The length of the white space character of more than one byte at the front, or 0.
std::size_t wideSpaceAtFront(std::string_view text)
{
    if (text.starts_with("\xc2\x85") || text.starts_with("\xc2\xa0"))
        return 2;
    if (text.size() < 3)
        return 0;
    const std::string_view three = text.substr(0, 3);
    if (three == "\xe1\x9a\x80" || three == "\xe2\x81\x9f" || three == "\xe3\x80\x80")
        return 3;
    const auto last = static_cast<unsigned char>(three[2]);
    const bool isGeneralSpace = last <= 0x8a || last == 0xa8 || last == 0xa9 || last == 0xaf;
    return three.starts_with("\xe2\x80") && isGeneralSpace ? 3 : 0;
}

std::size_t spaceAtFront(std::string_view text)
{
    if (isAsciiSpace(text.front()))
        return 1;
    return static_cast<unsigned char>(text.front()) < 0x80 ? 0 : wideSpaceAtFront(text);
}

std::size_t spaceAtBack(std::string_view text)
{
    if (isAsciiSpace(text.back()))
        return 1;
    if (static_cast<unsigned char>(text.back()) < 0x80)
        return 0;
    for (const std::size_t length : { std::size_t(2), std::size_t(3) }) {
        if (text.size() >= length && wideSpaceAtFront(text.substr(text.size() - length)) == length)
            return length;
    }
    return 0;
}

bool isContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U;
}

} // namespace

bool Utf8Check::feed(std::string_view bytes)
{
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    while (m_isSound && at != end) {
        if (m_pending == 0) {
            // Most indexes are plain ASCII: eight bytes at a time.
            for (std::uint64_t eight = 0; end - at >= 8; at += 8) {
                std::memcpy(&eight, at, sizeof eight);
                if (eight & highBits)
                    break;
            }
            if (at == end)
                break;
        }
        const auto byte = static_cast<unsigned char>(*at++);
        m_isSound = m_pending == 0 ? startSequence(byte) : continueSequence(byte);
    }
    return m_isSound;
}

bool Utf8Check::startSequence(unsigned char byte)
{
    if (byte < 0x80)
        return true;
    if (byte < 0xc2 || byte > 0xf4)
        return false;
    m_pending = byte < 0xe0 ? 1 : byte < 0xf0 ? 2 : 3;
    m_lowest = byte == 0xe0 ? 0xa0 : byte == 0xf0 ? 0x90 : 0x80;
    m_highest = byte == 0xed ? 0x9f : byte == 0xf4 ? 0x8f : 0xbf;
    return true;
}

bool Utf8Check::continueSequence(unsigned char byte)
{
    const bool isWithin = byte >= m_lowest && byte <= m_highest;
    --m_pending;
    m_lowest = 0x80;
    m_highest = 0xbf;
    return isWithin;
}

bool isUtf8(std::string_view bytes)
{
    Utf8Check check;
    check.feed(bytes);
    return check.isComplete();
}

QString textOf(std::string_view utf8)
{
    if (utf8.data() == nullptr)
        return {};
    if (utf8.empty())
        return QStringLiteral("");
    // Qt drops a first character of this kind as a mark: the marks are counted and put back.
    qsizetype marks = 0;
    for (; utf8.starts_with(byteOrderMark); utf8.remove_prefix(byteOrderMark.size()))
        ++marks;
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    return marks == 0 ? text : QString(marks, QChar(QChar::ByteOrderMark)) + text;
}

QByteArray utf8FromLatin1(std::string_view bytes)
{
    qsizetype wide = 0;
    for (const char c : bytes)
        wide += static_cast<unsigned char>(c) >> 7;
    QByteArray utf8(static_cast<qsizetype>(bytes.size()) + wide, Qt::Uninitialized);
    char* out = utf8.data();
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80)
            *out++ = static_cast<char>(0xc0 | (byte >> 6));
        *out++ = byte < 0x80 ? c : static_cast<char>(0x80 | (byte & 0x3f));
    }
    return utf8;
}

std::string_view withoutByteOrderMark(std::string_view utf8)
{
    return utf8.starts_with(byteOrderMark) ? utf8.substr(byteOrderMark.size()) : utf8;
}

std::string_view firstCharacters(std::string_view utf8, std::size_t count)
{
    for (std::size_t end = 0; end < utf8.size(); ++end) {
        if (!isContinuation(utf8[end]) && count-- == 0)
            return utf8.substr(0, end);
    }
    return utf8;
}

std::string_view firstBytes(std::string_view utf8, std::size_t count)
{
    if (utf8.size() <= count)
        return utf8;
    while (count > 0 && isContinuation(utf8[count]))
        --count;
    return utf8.substr(0, count);
}

std::string_view trimmedUtf8(std::string_view utf8)
{
    while (!utf8.empty()) {
        const std::size_t space = spaceAtFront(utf8);
        if (space == 0)
            break;
        utf8.remove_prefix(space);
    }
    while (!utf8.empty()) {
        const std::size_t space = spaceAtBack(utf8);
        if (space == 0)
            break;
        utf8.remove_suffix(space);
    }
    return utf8;
}
