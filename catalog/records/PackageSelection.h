#pragma once

#include "catalog/records/PackageList.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

// Some packages in an order of their own, read like a vector: places in a list, four bytes each, and not a pointer to
// every record, which would take a millisecond for 60,000 to make. It stays what it is when that list changes, and
// keeps the records. Copying costs nothing. Main thread.
class PackageSelection
{
public:
    using value_type = VeskPackagePtr;
    using Places = std::vector<std::uint32_t>;

    class const_iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = VeskPackagePtr;
        using difference_type = std::ptrdiff_t;
        using pointer = const VeskPackagePtr*;
        using reference = const VeskPackagePtr&;

        const_iterator() = default;
        const_iterator(const PackageSelection& selection, std::size_t row)
            : m_selection(&selection)
            , m_row(row)
        {
        }
        reference operator*() const { return (*m_selection)[m_row]; }
        pointer operator->() const { return &**this; }
        const_iterator& operator++()
        {
            ++m_row;
            return *this;
        }
        const_iterator operator++(int) { return { *m_selection, m_row++ }; }
        bool operator==(const const_iterator&) const = default;

    private:
        const PackageSelection* m_selection = nullptr;
        std::size_t m_row = 0;
    };

    PackageSelection() = default;
    // All of these, in their order.
    PackageSelection(const PackageList& packages)
        : PackageSelection(packages.shared())
    {
    }
    PackageSelection(PackageVector packages)
        : PackageSelection(std::make_shared<const PackageVector>(std::move(packages)))
    {
    }
    // Those at these places. The vector may be added to from then on, and not changed otherwise.
    PackageSelection(std::shared_ptr<const PackageVector> packages, std::shared_ptr<const Places> places)
        : m_packages(std::move(packages))
        , m_places(std::move(places))
        , m_size(m_places->size())
    {
    }

    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }
    const VeskPackagePtr& operator[](std::size_t row) const { return (*m_packages)[m_places ? (*m_places)[row] : row]; }
    const_iterator begin() const { return { *this, 0 }; }
    const_iterator end() const { return { *this, m_size }; }

    // Those in these of its rows.
    PackageSelection ofRows(Places rows) const
    {
        if (m_places)
            std::transform(rows.begin(), rows.end(), rows.begin(), [&](std::uint32_t row) { return (*m_places)[row]; });
        return { m_packages, std::make_shared<const Places>(std::move(rows)) };
    }

    // None when it is all of a list.
    const std::shared_ptr<const Places>& places() const { return m_places; }
    bool isOf(const PackageList& packages) const { return m_packages == packages.shared(); }

private:
    explicit PackageSelection(std::shared_ptr<const PackageVector> packages)
        : m_packages(std::move(packages))
        , m_size(m_packages->size())
    {
    }

    std::shared_ptr<const PackageVector> m_packages;
    std::shared_ptr<const Places> m_places;
    std::size_t m_size = 0;
};
