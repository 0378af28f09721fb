#pragma once

#include "catalog/decode/IndexDecoder.h"
#include "catalog/query/ParsedIndex.h"

#include <QByteArray>
#include <QStringList>

// What reading an index comes to by its plain definition: the whole text, line by line, into one map a stanza.

// The fields of one package after those of another, in a fixed order.
QStringList plainlyRead(const QByteArray& body, Compression compression);
// The same of packages.
QStringList fieldsOf(const PackageVector& packages);
