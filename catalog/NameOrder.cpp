#include "NameOrder.h"

#include <algorithm>

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

} // namespace

NameOrder::NameOrder(const QString& locale)
    : m_collator(std::make_unique<Collator>())
{
    m_collator->order = collatorFor(localeNamed(locale));
}

NameOrder::~NameOrder() = default;

std::string NameOrder::keyOf(std::string_view utf8) const
{
    const auto text = icu::UnicodeString::fromUTF8({ utf8.data(), static_cast<int32_t>(utf8.size()) });
    std::string key(utf8.size() * 2 + 16, '\0');
    // Without any collation data at all, letters without their case still give a sensible order.
    if (!m_collator->order) {
        icu::UnicodeString folded(text);
        key.clear();
        return folded.foldCase().toUTF8String(key);
    }
    const auto keyFits = [&] {
        const auto capacity = static_cast<int32_t>(key.size());
        const int32_t needed
            = m_collator->order->getSortKey(text, reinterpret_cast<std::uint8_t*>(key.data()), capacity);
        key.resize(static_cast<std::size_t>(needed));
        return needed <= capacity;
    };
    if (!keyFits())
        keyFits();
    return key;
}

void NameOrder::sort(PackageVector& packages) const
{
    std::vector<std::pair<std::string, VeskPackagePtr>> keyed;
    keyed.reserve(packages.size());
    for (VeskPackagePtr& package : packages)
        keyed.emplace_back(keyOf(package->utf8(VeskPackage::Text::Name)), std::move(package));
    std::stable_sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::transform(keyed.begin(), keyed.end(), packages.begin(), [](auto& pair) { return std::move(pair.second); });
}
