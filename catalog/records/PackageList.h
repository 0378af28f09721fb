#pragma once

#include "catalog/records/VeskPackage.h"

#include <cstddef>
#include <vector>

using PackageVector = std::vector<VeskPackagePtr>;

// The live, ordered list of the catalog's packages, which knows when it changed.
// Reading is that of a const vector; every change goes through one of the members below and raises revision(), so
// whatever was worked out from the list (search, orders) can tell with one comparison whether it still holds. Used on
// the main thread.
class PackageList
{
public:
    using const_iterator = PackageVector::const_iterator;

    const_iterator begin() const { return m_packages.begin(); }
    const_iterator end() const { return m_packages.end(); }
    std::size_t size() const { return m_packages.size(); }
    bool empty() const { return m_packages.empty(); }
    const VeskPackagePtr& operator[](std::size_t index) const { return m_packages[index]; }
    const PackageVector& all() const { return m_packages; }
    operator const PackageVector&() const { return m_packages; }

    void push_back(VeskPackagePtr package);
    void append(PackageVector packages);
    void assign(PackageVector packages);
    // Leaves it empty.
    PackageVector takeAll();
    void clear();
    // Removes every occurrence of that very record.
    void remove(const VeskPackagePtr& package);

    quint64 revision() const { return m_revision; }

private:
    PackageVector m_packages;
    quint64 m_revision = 0;
};
