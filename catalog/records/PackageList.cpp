#include "catalog/records/PackageList.h"

#include <iterator>
#include <utility>

void PackageList::push_back(VeskPackagePtr package)
{
    m_packages.push_back(std::move(package));
    ++m_revision;
}

void PackageList::append(PackageVector packages)
{
    if (m_packages.empty())
        m_packages = std::move(packages);
    else
        m_packages.insert(m_packages.end(), std::move_iterator(packages.begin()), std::move_iterator(packages.end()));
    ++m_revision;
}

void PackageList::assign(PackageVector packages)
{
    m_packages = std::move(packages);
    ++m_revision;
}

PackageVector PackageList::takeAll()
{
    ++m_revision;
    return std::exchange(m_packages, {});
}

void PackageList::clear()
{
    m_packages.clear();
    ++m_revision;
}

void PackageList::remove(const VeskPackagePtr& package)
{
    std::erase(m_packages, package);
    ++m_revision;
}
