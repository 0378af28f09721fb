#pragma once

#include <QByteArray>

#include <cstddef>

// How much one index may bring once it is received. An index beyond any of these fails like one that cannot be fetched:
// what a server sends must not be able to fill the memory of a telephone.
struct IndexLimits
{
    // Bytes of a field that are kept, far more than any screen shows; a longer one is cut between two characters.
    static constexpr std::size_t fieldSize = std::size_t(64) * 1024;
    // Bytes of a line that are read; the name of the field and blanks in front of its value are among them.
    static constexpr std::size_t lineSize = 2 * fieldSize;

    // Bytes of text after decompression (how many are received is bounded by the request, in catalog/CatalogWorld.cpp):
    // twenty times the largest index in use.
    std::size_t textSize = std::size_t(1) << 30;
    std::size_t packageCount = 10'000'000;
    // Bytes of all that is made of it: records with their texts, sort keys and sections. What is made can
    // be several times the text: ten million stanzas of nothing but a short identifier are 200 MB and make 1.6 GB, and
    // Latin-1 and some letters in lower case grow. An ordinary index makes half of its text.
    std::size_t madeSize = std::size_t(2) << 30;

    // The same where so many bytes of memory are free: an index may have a quarter of them as text and make a quarter,
    // so that another one can still be read beside it.
    IndexLimits within(std::size_t freeMemory) const;
};

// Bytes of memory that the system can still give without taking them from others; as many as there can be when it does
// not tell. Safe on any thread.
std::size_t freeMemory();
// What /proc/meminfo tells of it.
std::size_t freeMemoryIn(const QByteArray& meminfo);
