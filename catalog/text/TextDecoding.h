#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>

// Helpers for texts kept as UTF-8 bytes.

inline std::string_view viewOf(const QByteArray& bytes)
{
    return { bytes.constData(), static_cast<std::size_t>(bytes.size()) };
}

// Tells whether bytes that arrive in pieces are well-formed UTF-8: no overlong form, no surrogate, nothing cut off.
class Utf8Check
{
public:
    // False as soon as anything is wrong, and from then on.
    bool feed(std::string_view bytes);
    // Whether all that was fed is well-formed and ends where a character ends.
    bool isComplete() const { return m_isSound && m_pending == 0; }

private:
    bool startSequence(unsigned char byte);
    bool continueSequence(unsigned char byte);

    bool m_isSound = true;
    unsigned m_pending = 0;
    // The bounds of the next byte: narrower than those of others behind some first bytes.
    unsigned char m_lowest = 0x80;
    unsigned char m_highest = 0xbf;
};

bool isUtf8(std::string_view bytes);

// The text of well-formed bytes, every character of it, a byte order mark at its beginning too. Null without data.
QString textOf(std::string_view utf8);

// Every byte is the character of its own number.
QByteArray utf8FromLatin1(std::string_view bytes);

// A byte order mark tells the encoding and is no part of the first line.
std::string_view withoutByteOrderMark(std::string_view utf8);

// The beginning of well-formed bytes, of at most so many characters.
std::string_view firstCharacters(std::string_view utf8, std::size_t count);
// The beginning of well-formed bytes, of at most so many bytes, cut between two characters.
std::string_view firstBytes(std::string_view utf8, std::size_t count);

// Without the white space and line ends, those of all scripts, at both ends; it keeps its data pointer when nothing is
// left.
std::string_view trimmedUtf8(std::string_view utf8);
