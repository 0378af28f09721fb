#include "catalog/index/IndexParser.h"

#include "catalog/index/IndexLimits.h"
#include "catalog/text/TextDecoding.h"

#include <cstring>

struct IndexParser::FieldName
{
    std::string_view prefix;
    Field field;
};

const std::array<IndexParser::FieldName, IndexParser::FieldCount> IndexParser::fieldNames{ {
    { "Package:", Package },
    { "Name:", Name },
    { "Version:", Version },
    { "Description:", Description },
    { "Author:", Author },
    { "Maintainer:", Maintainer },
    { "Section:", Section },
    { "Icon:", Icon },
    { "Depiction:", Depiction },
    { "SileoDepiction:", SileoDepiction },
    { "ModernDepiction:", ModernDepiction },
    { "Homepage:", Homepage },
} };

namespace {

// What is kept of it is trimmed at its new end too.
std::string_view valueOf(std::string_view line, std::size_t prefixSize)
{
    const std::string_view value = trimmedUtf8(firstBytes(line, IndexLimits::lineSize).substr(prefixSize));
    return value.size() <= IndexLimits::fieldSize ? value : trimmedUtf8(firstBytes(value, IndexLimits::fieldSize));
}

} // namespace

IndexParser::IndexParser(VeskRepositoryPtr repository, const DpkgStatus& status, IsWanted isWanted)
    : m_status(status)
    , m_records(std::move(repository))
    , m_isWanted(std::move(isWanted))
{
}

IndexParser::~IndexParser() = default;

void IndexParser::feed(std::string_view utf8)
{
    while (!utf8.empty()) {
        const std::size_t length = utf8.find('\n');
        if (length == std::string_view::npos) {
            keepPartialLine(utf8);
            return;
        }
        if (m_partialLine.empty()) {
            readLine(utf8.substr(0, length));
        } else {
            keepPartialLine(utf8.substr(0, length));
            readLine(m_partialLine);
            m_partialLine.clear();
        }
        utf8.remove_prefix(length + 1);
    }
}

PackageVector IndexParser::finish()
{
    readLine(m_partialLine);
    endStanza();
    m_records.finish();
    m_packages.shrink_to_fit();
    return std::move(m_packages);
}

// One byte more than is read tells where the last character ends.
void IndexParser::keepPartialLine(std::string_view piece)
{
    m_partialLine.append(piece.substr(0, IndexLimits::lineSize + 1 - m_partialLine.size()));
}

// Continuation lines begin with a blank and so are never one of the fields.
void IndexParser::readLine(std::string_view line)
{
    if (line.empty()) {
        endStanza();
        return;
    }
    for (const FieldName& name : fieldNames) {
        if (line.front() != name.prefix.front() || !line.starts_with(name.prefix))
            continue;
        Value& value = m_stanza[name.field];
        value.isPresent = true;
        value.text.assign(valueOf(line, name.prefix.size()));
        m_stanzaIsEmpty = false;
        return;
    }
}

void IndexParser::endStanza()
{
    if (m_stanzaIsEmpty)
        return;
    if (m_stanza[Package].isPresent && !m_stanza[Package].text.empty())
        addPackage();
    for (Value& value : m_stanza)
        value.isPresent = false;
    m_stanzaIsEmpty = true;
}

void IndexParser::addPackage()
{
    ++m_packageCount;
    if (m_isWanted && !m_isWanted(firstOf({ Package })))
        return;
    const PackageTexts<std::string_view> texts([this](PackageText which) { return textOfStanza(which); });
    m_packages.push_back(m_records.add(texts));
}

std::string_view IndexParser::textOfStanza(PackageText which) const
{
    switch (which) {
    case PackageText::PackageID:
        return firstOf({ Package });
    case PackageText::Name:
        return firstOf({ Name, Package });
    case PackageText::Version:
        return firstOf({ Version }, "0");
    case PackageText::Desc:
        return firstOf({ Description });
    case PackageText::Author:
        return firstOf({ Author, Maintainer }, "Unknown");
    case PackageText::Maintainer:
        return firstOf({ Maintainer });
    case PackageText::Section:
        return firstOf({ Section }, "Other");
    case PackageText::IconURLString:
        return firstOf({ Icon });
    case PackageText::DepictionURLString:
        return firstOf({ Depiction, SileoDepiction, ModernDepiction });
    case PackageText::HomepageURLString:
        return firstOf({ Homepage });
    case PackageText::InstalledVersion:
        return m_status.versionOf(firstOf({ Package })).value_or(std::string_view());
    case PackageText::Count:
        break;
    }
    return {};
}

std::string_view IndexParser::firstOf(std::initializer_list<Field> fields, std::string_view fallback) const
{
    for (const Field field : fields) {
        if (m_stanza[field].isPresent)
            return m_stanza[field].text;
    }
    return fallback;
}
