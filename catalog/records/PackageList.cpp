#include "catalog/records/PackageList.h"

#include <algorithm>
#include <iterator>
#include <utility>

void PackageList::push_back(VeskPackagePtr package)
{
    m_packages->push_back(std::move(package));
    ++m_revision;
}

void PackageList::append(PackageVector packages)
{
    if (m_packages->empty())
        *m_packages = std::move(packages);
    else
        m_packages->insert(m_packages->end(), std::move_iterator(packages.begin()), std::move_iterator(packages.end()));
    ++m_revision;
}

void PackageList::assign(PackageVector packages)
{
    m_packages = std::make_shared<PackageVector>(std::move(packages));
    ++m_revision;
}

std::shared_ptr<const PackageVector> PackageList::takeAll()
{
    ++m_revision;
    return std::exchange(m_packages, std::make_shared<PackageVector>());
}

void PackageList::clear()
{
    assign({});
}

void PackageList::remove(const VeskPackagePtr& package)
{
    PackageVector rest;
    std::copy_if(begin(), end(), std::back_inserter(rest), [&](const VeskPackagePtr& each) { return each != package; });
    assign(std::move(rest));
}
