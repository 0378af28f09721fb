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

    const_iterator begin() const { return m_packages->begin(); }
    const_iterator end() const { return m_packages->end(); }
    std::size_t size() const { return m_packages->size(); }
    bool empty() const { return m_packages->empty(); }
    const VeskPackagePtr& operator[](std::size_t index) const { return (*m_packages)[index]; }
    const PackageVector& all() const { return *m_packages; }
    operator const PackageVector&() const { return *m_packages; }
    // To be held on to: packages are added to it for as long as the list has no other change, and it is the list's then
    // no more.
    std::shared_ptr<const PackageVector> shared() const { return m_packages; }

    void push_back(VeskPackagePtr package);
    void append(PackageVector packages);
    void assign(PackageVector packages);
    // Leaves it empty.
    std::shared_ptr<const PackageVector> takeAll();
    void clear();
    // Removes every occurrence of that very record.
    void remove(const VeskPackagePtr& package);

    quint64 revision() const { return m_revision; }

private:
    std::shared_ptr<PackageVector> m_packages = std::make_shared<PackageVector>();
    quint64 m_revision = 0;
};
