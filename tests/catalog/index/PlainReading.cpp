#include "tests/catalog/index/PlainReading.h"

#include "tests/catalog/decode/PlainReference.h"

#include <QHash>
#include <QSet>
#include <QStringDecoder>

namespace {

// A byte order mark is a character like any other: the name of the field behind it is another one.
QString decodedText(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    // Bytes that end within a character are told of by what follows them.
    text += decoder(QByteArray("\n"));
    if (decoder.hasError())
        return QString::fromLatin1(bytes);
    text.chop(1);
    return text;
}

using Stanza = QHash<QString, QString>;

// Those of the first stanza with each identifier.
void addFields(const Stanza& stanza, QSet<QString>& packageIDs, QStringList& fields)
{
    const QString package = stanza.value(QStringLiteral("Package"));
    if (package.isEmpty() || packageIDs.contains(package))
        return;
    packageIDs.insert(package);
    const QString sileoDepiction = stanza.value(
        QStringLiteral("SileoDepiction"), stanza.value(QStringLiteral("ModernDepiction"), QStringLiteral("")));
    fields << package << stanza.value(QStringLiteral("Name"), package)
           << stanza.value(QStringLiteral("Version"), QStringLiteral("0"))
           << stanza.value(QStringLiteral("Description"), QStringLiteral(""))
           << stanza.value(
                  QStringLiteral("Author"), stanza.value(QStringLiteral("Maintainer"), QStringLiteral("Unknown")))
           << stanza.value(QStringLiteral("Maintainer"), QStringLiteral(""))
           << stanza.value(QStringLiteral("Section"), QStringLiteral("Other"))
           << stanza.value(QStringLiteral("Icon"), QStringLiteral(""))
           << stanza.value(QStringLiteral("Depiction"), sileoDepiction)
           << stanza.value(QStringLiteral("Homepage"), QStringLiteral(""));
}

QStringList plainlyParsed(const QString& text)
{
    QStringList fields;
    QSet<QString> packageIDs;
    Stanza stanza;
    for (const QString& line : text.split(u'\n')) {
        const qsizetype colon = line.indexOf(u':');
        if (line.isEmpty()) {
            addFields(stanza, packageIDs, fields);
            stanza.clear();
        } else if (colon >= 0) {
            stanza.insert(line.left(colon), line.mid(colon + 1).trimmed());
        }
    }
    addFields(stanza, packageIDs, fields);
    return fields;
}

} // namespace

QStringList plainlyRead(const QByteArray& body, Compression compression)
{
    const PlainlyDecoded decoded = plainlyDecoded(body, compression);
    return plainlyParsed(decodedText(decoded.isSound ? decoded.text : body));
}

QStringList fieldsOf(const PackageVector& packages)
{
    QStringList fields;
    for (const VeskPackagePtr& package : packages) {
        fields << package->packageID() << package->name() << package->version() << package->desc() << package->author()
               << package->maintainer() << package->section() << package->iconURLString()
               << package->depictionURLString() << package->homepageURLString();
    }
    return fields;
}
