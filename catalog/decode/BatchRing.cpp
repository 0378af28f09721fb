#include "catalog/decode/BatchRing.h"

TextBatch* BatchRing::take()
{
    const std::lock_guard lock(m_mutex);
    m_isAwaited = m_underWay == count;
    if (m_isAwaited)
        return nullptr;
    ++m_underWay;
    std::unique_ptr<TextBatch>& batch = m_batches[m_next++ % count];
    if (!batch)
        batch = std::make_unique<TextBatch>();
    batch->clear();
    return batch.get();
}

// Not for each batch: half of them are filled at one go.
bool BatchRing::giveBack()
{
    const std::lock_guard lock(m_mutex);
    --m_underWay;
    const bool mayComeAgain = m_isAwaited && m_underWay <= count / 2;
    if (mayComeAgain)
        m_isAwaited = false;
    return mayComeAgain;
}
