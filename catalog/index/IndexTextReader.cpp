#include "catalog/index/IndexTextReader.h"

IndexTextReader::IndexTextReader(const IndexJob& job, const DpkgStatus& status, Encoding encoding)
    : m_job(job)
    , m_encoding(encoding)
    , m_parser(job.repository, status, [this](std::string_view packageID) {
        const auto place = static_cast<std::uint32_t>(m_parser.packages().size());
        return m_index.identifiers.add(packageID, place, m_parser.packages());
    })
{
}

bool IndexTextReader::feed(std::string_view bytes)
{
    if (m_state != State::Sound)
        return false;
    if (m_encoding == Encoding::Latin1)
        parse(viewOf(utf8FromLatin1(bytes)));
    else if (!m_check.feed(bytes))
        m_state = State::NotUtf8;
    else
        parse(bytes);
    return m_state == State::Sound;
}

IndexTextReader::State IndexTextReader::finish()
{
    if (m_state == State::Sound && m_encoding == Encoding::Utf8 && !m_check.isComplete())
        m_state = State::NotUtf8;
    if (m_state != State::Sound)
        return m_state;
    m_index.packages = m_parser.finish();
    indexNewPackages(m_index.packages);
    m_index.searchText = SearchText(m_parser.takeOrigins());
    if (isBeyondLimits())
        return m_state = State::Refused;
    m_index.nameKeys.sort();
    m_index.sections.sort(*m_job.nameOrder);
    if (isBeyondLimits())
        m_state = State::Refused;
    return m_state;
}

void IndexTextReader::parse(std::string_view utf8)
{
    m_parser.feed(utf8);
    indexNewPackages(m_parser.packages());
    m_index.nameKeys.sortAdded();
    if (isBeyondLimits())
        m_state = State::Refused;
}

bool IndexTextReader::isBeyondLimits() const
{
    return m_parser.packageCount() > m_job.limits.packageCount
        || m_parser.byteSize() + m_index.byteSize() > m_job.limits.madeSize;
}

void IndexTextReader::indexNewPackages(const PackageVector& packages)
{
    for (std::size_t place = m_index.nameKeys.size(); place < packages.size(); ++place) {
        m_index.nameKeys.add(packages[place]->utf8(VeskPackage::Text::Name), *m_job.nameOrder);
        m_index.sections.add(packages[place]->utf8(VeskPackage::Text::Section));
    }
}
