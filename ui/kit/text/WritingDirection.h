#pragma once

#include <QString>

// What is drawn of texts from elsewhere, whichever way they are written: right to left as well as left to right, and
// never so that one moves another about. Texts all written from left to right come back as they are, and share their
// data.
namespace kit::WritingDirection {

// Of a label or title. Characters that force a direction on what follows them are left out, for they can make a name
// read as another. What a bullet divides, say an author and a version, keeps that order, each part in its own
// direction.
QString shown(const QString& text);
// Of a sentence of the interface with names in it: it begins at the left, and numbers and points stay at their side of
// a name that is written from right to left.
QString shownSentence(const QString& text);

} // namespace kit::WritingDirection
