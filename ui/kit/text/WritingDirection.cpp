#include "ui/kit/text/WritingDirection.h"

#include <QStringList>

#include <algorithm>

namespace kit {

namespace {

constexpr QChar Bullet(0x2022);
constexpr QChar LeftToRightMark(0x200e);
constexpr QChar RightToLeftIsolate(0x2067);
constexpr QChar FirstStrongIsolate(0x2068);
constexpr QChar PopIsolate(0x2069);

bool forcesDirection(QChar character)
{
    switch (character.direction()) {
    case QChar::DirLRE:
    case QChar::DirRLE:
    case QChar::DirLRO:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI:
        return true;
    default:
        return false;
    }
}

// Only letters of the first plane are known: what is written beyond it from right to left keeps its own order, but may
// move a number beside it.
bool runsRightToLeft(QChar character)
{
    const auto direction = character.direction();
    return direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirAN;
}

bool isPlain(const QString& text)
{
    return std::none_of(text.begin(), text.end(),
        [](QChar character) { return runsRightToLeft(character) || forcesDirection(character); });
}

QString withoutForce(QString text)
{
    text.removeIf(forcesDirection);
    return text;
}

// One past the last of the right-to-left letters from there on that no left-to-right one parts from the first.
qsizetype endOfRun(const QString& text, qsizetype begin)
{
    qsizetype end = begin;
    for (qsizetype index = begin; index < text.size(); ++index) {
        if (runsRightToLeft(text[index]))
            end = index + 1;
        else if (text[index].direction() == QChar::DirL)
            break;
    }
    return end;
}

} // namespace

QString WritingDirection::shown(const QString& text)
{
    if (isPlain(text))
        return text;
    QString harmless = withoutForce(text);
    if (!harmless.contains(Bullet))
        return harmless;
    QStringList parts = harmless.split(Bullet);
    for (QString& part : parts) {
        const QString words = part.trimmed();
        if (!words.isEmpty())
            part.replace(words, FirstStrongIsolate + words + PopIsolate);
    }
    return parts.join(Bullet);
}

QString WritingDirection::shownSentence(const QString& text)
{
    if (isPlain(text))
        return text;
    const QString harmless = withoutForce(text);
    QString sentence(LeftToRightMark);
    for (qsizetype index = 0; index < harmless.size();) {
        if (!runsRightToLeft(harmless[index])) {
            sentence += harmless[index++];
            continue;
        }
        const qsizetype end = endOfRun(harmless, index);
        sentence += RightToLeftIsolate + harmless.mid(index, end - index) + PopIsolate;
        index = end;
    }
    return sentence;
}

} // namespace kit
