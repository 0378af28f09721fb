#pragma once

#include "PackageList.h"

#include <QString>

#include <memory>
#include <string>
#include <string_view>

// The order of texts for a person who reads a language: its own order of letters, upper and lower case equal.
// Made for one locale, such as "de" or "sv_SE"; one without an order of its own gets the general one. Safe on any
// thread.
class NameOrder
{
public:
    explicit NameOrder(const QString& locale);
    ~NameOrder();

    // A key that compares bytewise as the texts do in this order.
    std::string keyOf(std::string_view utf8) const;
    // By name, packages of equal names staying as they stood.
    void sort(PackageVector& packages) const;

private:
    struct Collator;
    std::unique_ptr<Collator> m_collator;
};
