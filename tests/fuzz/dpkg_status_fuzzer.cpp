// Any bytes as the status file of dpkg: each package has the version that the plain definition gives it.
#include "catalog/index/DpkgStatus.h"
#include "catalog/text/TextDecoding.h"
#include "tests/fuzz/Require.h"

#include <QStringList>

#include <cstdint>

namespace {

QString withoutBlanks(QString text)
{
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    while (!text.isEmpty() && isBlank(text.front()))
        text.remove(0, 1);
    return text;
}

struct Stanza
{
    // Null when it has none.
    QString packageID;
    QString version;
};

Stanza plainlyRead(const QString& text)
{
    Stanza stanza;
    for (const QString& line : text.split(u'\n')) {
        if (line.startsWith(QLatin1String("Package:")))
            stanza.packageID = withoutBlanks(line.mid(8));
        else if (line.startsWith(QLatin1String("Version:")))
            stanza.version = withoutBlanks(line.mid(8));
    }
    return stanza;
}

// The first stanza of that identifier counts, whether it has a version or not.
QString plainlyFound(const QList<Stanza>& stanzas, const QString& packageID)
{
    for (const Stanza& stanza : stanzas) {
        if (!stanza.packageID.isNull() && stanza.packageID == packageID)
            return stanza.version;
    }
    return {};
}

void check(const DpkgStatus& status, const QList<Stanza>& stanzas, const QString& packageID)
{
    const QByteArray utf8 = packageID.toUtf8();
    const auto version = status.versionOf(viewOf(utf8));
    const QString expected = plainlyFound(stanzas, packageID);
    require(version.has_value() != expected.isNull());
    require(!version || textOf(*version) == expected);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString text = isUtf8(viewOf(bytes)) ? textOf(viewOf(bytes)) : QString::fromLatin1(bytes);
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    QList<Stanza> stanzas;
    for (const QString& part : text.split(QStringLiteral("\n\n")))
        stanzas.append(plainlyRead(part));
    const DpkgStatus status = DpkgStatus::fromBytes(bytes);
    for (const Stanza& stanza : stanzas)
        check(status, stanzas, stanza.packageID.isNull() ? stanza.version : stanza.packageID);
    check(status, stanzas, QStringLiteral("vesk"));
    return 0;
}
