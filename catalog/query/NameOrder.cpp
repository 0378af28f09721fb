#include "catalog/query/NameOrder.h"

#include "catalog/text/LowerCase.h"
#include "catalog/text/TextDecoding.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

struct NameOrder::Collator
{
    std::unique_ptr<icu::Collator> order;
};

namespace {

// The plain "C" locale has the order of bytes, which puts "Zebra" before "apple": the general order stands in for it.
icu::Locale localeNamed(const QString& name)
{
    if (name.isEmpty() || name == QLatin1String("C")
        || name.startsWith(QLatin1String("en-US-POSIX"), Qt::CaseInsensitive)
        || name.startsWith(QLatin1String("en_US_POSIX"), Qt::CaseInsensitive))
        return icu::Locale::getRoot();
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale
        = icu::Locale::forLanguageTag(QString(name).replace(u'_', u'-').toLatin1().constData(), status);
    return U_SUCCESS(status) ? locale : icu::Locale::getRoot();
}

std::unique_ptr<icu::Collator> collatorFor(const icu::Locale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(locale, status));
    // Secondary strength tells accents apart but not case.
    if (U_SUCCESS(status) && collator)
        collator->setStrength(icu::Collator::SECONDARY);
    return U_SUCCESS(status) ? std::move(collator) : nullptr;
}

void appendKeyOf(std::u16string_view text, const icu::Collator& collator, std::string& keys)
{
    std::array<std::uint8_t, 256> buffer{};
    const auto size = static_cast<int32_t>(text.size());
    const int32_t length = collator.getSortKey(text.data(), size, buffer.data(), static_cast<int32_t>(buffer.size()));
    const auto needed = static_cast<std::size_t>(length);
    if (needed <= buffer.size()) {
        keys.append(reinterpret_cast<const char*>(buffer.data()), needed);
        return;
    }
    const std::size_t begin = keys.size();
    keys.resize(begin + needed);
    collator.getSortKey(text.data(), size, reinterpret_cast<std::uint8_t*>(keys.data() + begin), length);
}

} // namespace

NameOrder::NameOrder(const QString& locale)
    : m_collator(std::make_unique<Collator>())
{
    m_collator->order = collatorFor(localeNamed(locale));
}

NameOrder::~NameOrder() = default;

void NameOrder::appendKey(std::string_view utf8, std::string& keys) const
{
    const std::string_view compared = firstCharacters(utf8, comparedCharacters);
    if (m_collator->order && isAscii(compared)) {
        std::array<char16_t, comparedCharacters> units{};
        std::copy(compared.begin(), compared.end(), units.begin());
        return appendKeyOf({ units.data(), compared.size() }, *m_collator->order, keys);
    }
    const auto text = icu::UnicodeString::fromUTF8({ compared.data(), static_cast<int32_t>(compared.size()) });
    if (m_collator->order)
        return appendKeyOf({ text.getBuffer(), static_cast<std::size_t>(text.length()) }, *m_collator->order, keys);
    // Without any collation data at all, texts without their case still stand in a sensible order.
    icu::UnicodeString(text).foldCase().toUTF8String(keys);
}

std::string NameOrder::keyOf(std::string_view utf8) const
{
    std::string key;
    appendKey(utf8, key);
    return key;
}
