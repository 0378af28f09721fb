#pragma once

#include <QString>

#include <memory>

class VeskCategory;
using VeskCategoryPtr = std::shared_ptr<VeskCategory>;

// One section name with the number of catalog packages in it; made afresh by every category query. What screens call a
// category is a section in an index and in catalog/query/SectionCounts.h, which puts them in order.
class VeskCategory
{
public:
    static VeskCategoryPtr categoryWithName(const QString& name, quint64 count);

    const QString& name() const { return m_name; }
    quint64 count() const { return m_count; }
    void setName(const QString& name) { m_name = name; }
    void setCount(quint64 count) { m_count = count; }

private:
    QString m_name;
    quint64 m_count = 0;
};
