#include "IndexParser.h"

#include "TextDecoding.h"

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

IndexParser::IndexParser(VeskRepositoryPtr repository, const DpkgStatus& status)
    : m_repository(std::move(repository))
    , m_status(status)
{
}

IndexParser::~IndexParser() = default;

void IndexParser::feed(std::string_view utf8)
{
    while (!utf8.empty()) {
        const std::size_t length = utf8.find('\n');
        if (length == std::string_view::npos) {
            m_partialLine.append(utf8);
            return;
        }
        if (m_partialLine.empty()) {
            readLine(utf8.substr(0, length));
        } else {
            m_partialLine.append(utf8.substr(0, length));
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
    m_texts.shrink();
    m_packages.shrink_to_fit();
    return std::move(m_packages);
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
        value.text.assign(trimmedUtf8(line.substr(name.prefix.size())));
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
    const auto orText = [this](TextPool::Handle handle, std::string_view fallback) {
        return handle == TextPool::null ? m_texts.add(fallback) : handle;
    };
    const auto installed = m_status.versionOf(m_stanza[Package].text);
    const VeskPackage::TextHandles texts{
        firstOf({ Package }),
        firstOf({ Name, Package }),
        orText(firstOf({ Version }), "0"),
        firstOf({ Description }),
        orText(firstOf({ Author, Maintainer }), "Unknown"),
        firstOf({ Maintainer }),
        orText(firstOf({ Section }), "Other"),
        firstOf({ Icon }),
        firstOf({ Depiction, SileoDepiction, ModernDepiction }),
        firstOf({ Homepage }),
        installed ? m_texts.add(*installed) : TextPool::null,
    };
    m_packages.push_back(std::make_shared<VeskPackage>(m_texts.pool(), texts, m_repository));
}

TextPool::Handle IndexParser::firstOf(std::initializer_list<Field> fields)
{
    for (const Field field : fields) {
        if (m_stanza[field].isPresent)
            return m_texts.add(m_stanza[field].text);
    }
    return TextPool::null;
}
