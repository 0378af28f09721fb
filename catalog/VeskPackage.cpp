#include "VeskPackage.h"

#include "TextDecoding.h"

#include <QByteArray>

#include <atomic>

namespace {

std::atomic<quint64> edits = 0;

} // namespace

VeskPackage::VeskPackage(std::shared_ptr<const TextPool> pool, const TextHandles& texts, VeskRepositoryPtr repository)
    : m_pool(std::move(pool))
    , m_repository(std::move(repository))
    , m_texts(texts)
{
}

std::string_view VeskPackage::utf8(Text which) const
{
    return m_pool ? m_pool->text(m_texts[static_cast<std::size_t>(which)]) : std::string_view();
}

quint64 VeskPackage::editCount()
{
    return edits.load(std::memory_order_relaxed);
}

QString VeskPackage::text(Text which) const
{
    return textOf(utf8(which));
}

// The shared pool is never changed: a record that is edited moves to a pool of its own.
void VeskPackage::setText(Text which, const QString& value)
{
    const QByteArray utf8Value = value.toUtf8();
    auto pool = std::make_shared<TextPool>();
    TextHandles texts{};
    for (std::size_t index = 0; index < textCount; ++index)
        texts[index] = pool->add(utf8(static_cast<Text>(index)));
    const std::string_view bytes(utf8Value.constData(), static_cast<std::size_t>(utf8Value.size()));
    texts[static_cast<std::size_t>(which)] = value.isNull() ? TextPool::null : pool->add(bytes);
    m_pool = std::move(pool);
    m_texts = texts;
    edits.fetch_add(1, std::memory_order_relaxed);
}
