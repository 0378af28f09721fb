#pragma once

#include "catalog/decode/TextBatch.h"

#include <array>
#include <memory>
#include <mutex>

// A few batches of text that go round between who fills them and who reads them, in order: no more text than they hold
// is ever on its way. Nobody waits here; who finds no batch to fill is told when to come again.
class BatchRing
{
public:
    // The filling side: an empty batch, or null when all are under way.
    TextBatch* take();
    // The reading side, once for each batch, when it is done with it: whether the filling side has been turned away
    // since and may come again.
    bool giveBack();

private:
    // One is filled and one read, and neither side stops for a hitch of the other.
    static constexpr std::size_t count = 4;

    std::mutex m_mutex;
    std::array<std::unique_ptr<TextBatch>, count> m_batches;
    std::size_t m_next = 0;
    std::size_t m_underWay = 0;
    bool m_isAwaited = false;
};
