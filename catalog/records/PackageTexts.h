#pragma once

#include <array>
#include <cstddef>

// The texts that make up a package, by name.
enum class PackageText : std::size_t {
    PackageID,
    Name,
    Version,
    Desc,
    Author,
    Maintainer,
    Section,
    IconURLString,
    DepictionURLString,
    HomepageURLString,
    InstalledVersion,
    // How many there are; no text itself.
    Count,
};

// One value for each of the texts, reached by the text's name alone.
template <class Value> class PackageTexts
{
public:
    PackageTexts() = default;

    // Asks give(PackageText) for every value. A switch in it names the texts, so that the compiler misses none.
    template <class Give> explicit PackageTexts(const Give& give)
    {
        for (std::size_t index = 0; index < m_values.size(); ++index)
            m_values[index] = give(static_cast<PackageText>(index));
    }

    Value& operator[](PackageText which) { return m_values[static_cast<std::size_t>(which)]; }
    const Value& operator[](PackageText which) const { return m_values[static_cast<std::size_t>(which)]; }

    auto begin() const { return m_values.begin(); }
    auto end() const { return m_values.end(); }

private:
    std::array<Value, static_cast<std::size_t>(PackageText::Count)> m_values{};
};
