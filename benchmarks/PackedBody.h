#pragma once

#include <QByteArray>

QByteArray packedByGzip(const QByteArray& text);
QByteArray packedByBzip2(const QByteArray& text);
QByteArray unpackedByGzip(const QByteArray& body);

// The floors of all reading: the libraries alone, in passes of 64 KiB, the text thrown away. They give its length.
qsizetype inflateAlone(const QByteArray& body);
qsizetype bunzipAlone(const QByteArray& body);
