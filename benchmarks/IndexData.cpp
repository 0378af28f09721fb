#include "benchmarks/IndexData.h"

#include "benchmarks/GeneratedIndex.h"
#include "benchmarks/PackedBody.h"

#include <QFile>

#include <functional>

namespace {

constexpr auto debianIndex = "build/demo/sources/debian/Packages.gz";
constexpr int generatedPackages = 60000;
const QByteArray firstField = "Package: ";

// Calls with the identifier and the whole of each stanza.
void forEachStanza(
    const QByteArray& index, const std::function<void(const QByteArray& packageID, QByteArrayView stanza)>& call)
{
    qsizetype at = index.indexOf(firstField);
    while (at >= 0) {
        const qsizetype blankLine = index.indexOf("\n\n", at);
        const qsizetype end = blankLine < 0 ? index.size() : blankLine + 2;
        const qsizetype value = at + firstField.size();
        call(index.mid(value, index.indexOf('\n', at) - value), QByteArrayView(index).sliced(at, end - at));
        at = index.indexOf(firstField, end);
    }
}

} // namespace

QByteArray realIndex()
{
    QFile file(QString::fromLatin1(debianIndex));
    return file.open(QIODevice::ReadOnly) ? unpackedByGzip(file.readAll()) : generatedIndex(generatedPackages);
}

QByteArray tenTimes(const QByteArray& index)
{
    QByteArray text = index;
    text.reserve(index.size() * 10 + index.size() / 10);
    for (int copy = 1; copy < 10; ++copy) {
        forEachStanza(index, [&](const QByteArray& packageID, QByteArrayView stanza) {
            text.append(firstField + packageID + "-copy" + QByteArray::number(copy));
            text.append(stanza.sliced(firstField.size() + packageID.size()));
        });
    }
    return text;
}

QByteArray tenthOf(const QByteArray& index)
{
    QByteArray text;
    int number = 0;
    forEachStanza(index, [&](const QByteArray& /*packageID*/, QByteArrayView stanza) {
        if (number++ % 10 == 0)
            text.append(stanza);
    });
    return text;
}

QByteArray withEveryField(const QByteArray& index)
{
    QByteArray text;
    text.reserve(index.size() * 2);
    forEachStanza(index, [&](const QByteArray& packageID, QByteArrayView stanza) {
        const QByteArray name = "The " + packageID.toUpper() + " Package";
        text.append("Name: " + name + "\nAuthor: Author of " + packageID + " <" + packageID
            + "@people.example>\nIcon: http://icons.example/" + packageID
            + ".png\nDepiction: http://depictions.example/" + packageID + ".html\n");
        text.append(stanza);
    });
    return text;
}

int packageCountOf(const QByteArray& index)
{
    return static_cast<int>(index.count("\n" + firstField)) + (index.startsWith(firstField) ? 1 : 0);
}
