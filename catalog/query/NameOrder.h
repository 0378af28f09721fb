#pragma once

#include <QString>

#include <memory>
#include <string>
#include <string_view>

// The order of texts for a person who reads a language: its own order of letters, upper and lower case equal.
// Made for one locale, such as "de" or "sv_SE"; one without an order of its own gets the general one. Any number of
// threads may use one at once.
class NameOrder
{
public:
    // More than a row shows. A key can be eight times as long as its text: of names without bound, keys could fill the
    // memory.
    static constexpr std::size_t comparedCharacters = 64;

    explicit NameOrder(const QString& locale);
    ~NameOrder();

    // Appends a key that compares bytewise as the texts do in this order; texts that are alike in their first
    // comparedCharacters count as equal.
    void appendKey(std::string_view utf8, std::string& keys) const;
    std::string keyOf(std::string_view utf8) const;

private:
    struct Collator;
    std::unique_ptr<Collator> m_collator;
};
