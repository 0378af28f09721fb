#include "ui/kit/table/SectionHeaders.h"

#include "ui/kit/table/TableHost.h"
#include "ui/kit/table/TableLayout.h"
#include "ui/kit/table/TableViewDelegate.h"

namespace kit {

View* SectionHeaders::headerOf(int section) const
{
    const auto found = m_headers.find(section);
    return found == m_headers.end() ? nullptr : found->second;
}

void SectionHeaders::remake()
{
    dropAll();
    for (int section = 0; section < m_table.layout().sectionCount(); ++section) {
        View* const header = m_table.delegate().viewForHeaderInSection(section);
        if (!header)
            continue;
        m_table.addSubview(header);
        m_headers[section] = header;
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
