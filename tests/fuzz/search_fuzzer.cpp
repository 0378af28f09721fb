// Any texts in the searched fields of a few packages, and any query: what is found is what the plain definition finds,
// with every text lower-cased as a whole.
#include "catalog/query/SearchText.h"
#include "catalog/text/TextDecoding.h"
#include "tests/fuzz/Require.h"

#include <QStringList>

#include <array>
#include <cstdint>

namespace {

constexpr qsizetype fieldsOfAPackage = 4;

VeskPackage packageOf(const QStringList& texts, qsizetype first)
{
    VeskPackage package;
    package.setName(texts.value(first));
    package.setPackageID(texts.value(first + 1));
    package.setDesc(texts.value(first + 2));
    package.setAuthor(texts.value(first + 3));
    return package;
}

bool plainlyMatches(const QStringList& texts, qsizetype first, const QString& query)
{
    for (qsizetype field = first; field < first + fieldsOfAPackage; ++field) {
        if (texts.value(field).toLower().contains(query.toLower()))
            return true;
    }
    return false;
}

} // namespace

// Texts end with a byte that is in none of them; the first one is the query.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QStringList texts;
    for (const QByteArray& bytes :
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)).split('\xff'))
        texts.append(QString::fromUtf8(bytes));
    const QString query = texts.takeFirst();
    const QByteArray folded = SearchText::folded(query);
    if (folded.isEmpty())
        return 0;
    SearchText searched;
    std::vector<std::uint32_t> expected;
    for (qsizetype first = 0; first < texts.size(); first += fieldsOfAPackage) {
        searched.add(packageOf(texts, first));
        if (plainlyMatches(texts, first, query))
            expected.push_back(static_cast<std::uint32_t>(first / fieldsOfAPackage));
    }
    require(searched.find(viewOf(folded)) == expected);
    return 0;
}
