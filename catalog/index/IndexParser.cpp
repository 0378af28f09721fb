#include "catalog/index/IndexParser.h"

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

IndexParser::IndexParser(VeskRepositoryPtr repository, const DpkgStatus& status)
    : m_status(status)
    , m_origin(std::make_shared<PackageOrigin>())
    , m_texts(m_origin->texts)
    , m_sharedTexts(m_texts)
    , m_records(std::make_shared<std::deque<VeskPackage>>())
{
    m_origin->repository = std::move(repository);
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
    const std::string_view packageID = m_stanza[Package].text;
    const std::string_view name = firstOf({ Name, Package });
    const auto installed = m_status.versionOf(packageID);
    const TextPool::Handle packageIDHandle = m_texts.add(packageID);
    const TextPool::Handle maintainer = shared(firstOf({ Maintainer }));
    const bool hasAuthor = m_stanza[Author].isPresent || maintainer == TextPool::null;
    const VeskPackage::TextHandles texts{
        packageIDHandle,
        name == packageID ? packageIDHandle : m_texts.add(name),
        shared(firstOf({ Version }), "0"),
        m_texts.add(firstOf({ Description })),
        hasAuthor ? shared(firstOf({ Author }), "Unknown") : maintainer,
        maintainer,
        shared(firstOf({ Section }), "Other"),
        shared(firstOf({ Icon })),
        m_texts.add(firstOf({ Depiction, SileoDepiction, ModernDepiction })),
        addHomepage(firstOf({ Homepage })),
        installed ? shared(*installed) : TextPool::null,
    };
    VeskPackage& record = m_records->emplace_back(m_origin, texts);
    m_packages.emplace_back(m_records, &record);
}

TextPool::Handle IndexParser::shared(std::string_view text, std::string_view fallback)
{
    return m_sharedTexts.add(text.data() == nullptr ? fallback : text);
}

// The packages made of one source have its homepage, and stand near each other.
TextPool::Handle IndexParser::addHomepage(std::string_view text)
{
    if (text.empty() || m_texts.text(m_lastHomepage) != text)
        m_lastHomepage = m_texts.add(text);
    return m_lastHomepage;
}

std::string_view IndexParser::firstOf(std::initializer_list<Field> fields) const
{
    for (const Field field : fields) {
        if (m_stanza[field].isPresent)
            return m_stanza[field].text;
    }
    return {};
}
