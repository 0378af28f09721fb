#include "catalog/records/VeskPackage.h"

#include "catalog/text/TextDecoding.h"

#include <QByteArray>

#include <atomic>

namespace {

std::atomic<quint64> edits = 0;

} // namespace

VeskPackage::VeskPackage(std::shared_ptr<const PackageOrigin> origin, const TextHandles& texts)
    : m_origin(std::move(origin))
    , m_texts(texts)
{
}

void VeskPackage::setRepository(const VeskRepositoryPtr& repository)
{
    moveToOwnOrigin()->repository = repository;
}

std::string_view VeskPackage::utf8(Text which) const
{
    return m_origin ? m_origin->text(m_texts[which]) : std::string_view();
}

quint64 VeskPackage::editCount()
{
    return edits.load(std::memory_order_relaxed);
}

QString VeskPackage::text(Text which) const
{
    return textOf(utf8(which));
}

void VeskPackage::setText(Text which, const QString& value)
{
    const auto origin = moveToOwnOrigin();
    const QByteArray bytes = value.toUtf8();
    m_texts[which] = value.isNull() ? TextPool::null
                                    : origin->texts.add({ bytes.constData(), static_cast<std::size_t>(bytes.size()) });
    edits.fetch_add(1, std::memory_order_relaxed);
}

// An origin that others may share is never changed: a record that is edited moves to one of its own.
std::shared_ptr<PackageOrigin> VeskPackage::moveToOwnOrigin()
{
    auto origin = std::make_shared<PackageOrigin>();
    origin->repository = repository();
    m_texts = TextHandles([&](Text which) { return origin->texts.add(utf8(which)); });
    m_origin = origin;
    return origin;
}
