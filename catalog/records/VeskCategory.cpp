#include "catalog/records/VeskCategory.h"

VeskCategoryPtr VeskCategory::categoryWithName(const QString& name, quint64 count)
{
    auto category = std::make_shared<VeskCategory>();
    category->setName(name);
    category->setCount(count);
    return category;
}
