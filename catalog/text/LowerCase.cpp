#include "catalog/text/LowerCase.h"

#include <algorithm>

bool isAscii(std::string_view text)
{
    unsigned char bits = 0;
    for (const char c : text)
        bits |= static_cast<unsigned char>(c);
    return bits < 0x80;
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
