#pragma once

#include <QByteArray>

#include <cstdint>
#include <string>

// Bzip2 streams for the tests of what takes them apart.

// Text that does not pack well, the same in every run.
QByteArray noise(int size);
// In blocks of 100,000 bytes, the smallest there are; flushed after each so many bytes, if any are told, which makes
// short blocks.
QByteArray packedInSmallBlocks(const QByteArray& text, int flushInterval = 0);
// What the library makes of a body that is given to it as a whole: null when it breaks off.
QByteArray unpackedByLibrary(const QByteArray& body);

// A body as one digit a bit.
std::string bitsOf(const QByteArray& body);
// The last byte is filled up with zeros.
QByteArray bodyOf(const std::string& bits);

inline const std::string blockMarkBits = "001100010100000101011001001001100101001101011001";
inline const std::string endMarkBits = "000101110111001001000101001110000101000010010000";

// The bits with a block mark in the data of their first block, which stays sound: a table of it gets entries that
// nobody looks up, and they read as the mark.
std::string withFalseMark(const std::string& bits);

// The body with bits turned over as the data tells: so many bytes for a place, one more for the bits. Left over at the
// end, a place alone tells where the body is cut.
QByteArray edited(QByteArray body, const std::uint8_t* data, std::size_t size, std::size_t bytesOfPlace);
