#include "ui/kit/table/SectionHeaders.h"

#include "ui/kit/table/TableHost.h"
#include "ui/kit/table/TableLayout.h"
#include "ui/kit/table/TableViewDelegate.h"

#include <algorithm>
#include <utility>

namespace kit {

View* SectionHeaders::headerOf(int section) const
{
    const auto found = m_headers.find(section);
    return found == m_headers.end() ? nullptr : found->second;
}

void SectionHeaders::remake()
{
    Headers asked = askForAll();
    const bool areLike = std::equal(m_headers.begin(), m_headers.end(), asked.begin(), asked.end(),
        [](const auto& a, const auto& b) { return a.first == b.first && a.second->isLike(*b.second); });
    if (!areLike) {
        dropAll();
        return showAll(std::move(asked));
    }
    for (const auto& [section, header] : asked)
        delete header;
}

SectionHeaders::Headers SectionHeaders::askForAll() const
{
    Headers asked;
    for (int section = 0; section < m_table.layout().sectionCount(); ++section) {
        if (View* const header = m_table.delegate().viewForHeaderInSection(section))
            asked[section] = header;
    }
    return asked;
}

void SectionHeaders::showAll(Headers headers)
{
    m_headers = std::move(headers);
    for (const auto& [section, header] : m_headers) {
        m_table.addSubview(header);
        m_model.append(header);
    }
}

void SectionHeaders::dropAll()
{
    for (const auto& [section, header] : m_headers) {
        m_model.remove(header);
        header->removeFromSuperview();
        header->deleteLater();
    }
    m_headers.clear();
}

void SectionHeaders::place()
{
    const TableLayout& layout = m_table.layout();
    for (const auto& [section, header] : m_headers) {
        const double top = layout.headerTop(section, m_table.contentOffset());
        header->setFrame({ 0, top, m_table.width(), layout.headerHeight(section) });
    }
}

} // namespace kit
