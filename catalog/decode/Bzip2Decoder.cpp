#include "catalog/decode/Bzip2Decoder.h"

#include "catalog/decode/Bzip2Stream.h"
#include "catalog/text/TextDecoding.h"

#include <atomic>
#include <utility>

// Used by the decoder alone once it is done, and by its worker alone before.
struct Bzip2Decoder::Task
{
    QByteArray text;
    std::atomic<bool> isDone = false;
};

Bzip2Decoder::Bzip2Decoder(DecoderTools tools)
    : m_tools(std::move(tools))
    , m_blocks(m_tools.body)
{
}

Bzip2Decoder::~Bzip2Decoder() = default;

DecodeState Bzip2Decoder::decode(TextBatch& batch)
{
    if (m_inOrder)
        return m_inOrder->decode(batch);
    startTasks();
    if (m_rest.empty())
        return takeText();
    const std::size_t count = batch.append(m_rest);
    m_rest.remove_prefix(count);
    m_sizeWritten += count;
    return DecodeState::Going;
}

// No more than there are processors, be the body as large as it may: each takes the memory of its text.
void Bzip2Decoder::startTasks()
{
    while (m_ahead.size() < m_tools.workers.count()) {
        const auto block = m_blocks.next();
        if (!block)
            return;
        start(*block);
    }
}

// The worker holds its task weakly: nobody waits for that of a decoder that is gone, or goes on in order.
void Bzip2Decoder::start(const Bzip2Blocks::Block& block)
{
    const auto task = m_ahead.emplace_back(std::make_shared<Task>());
    m_tools.workers.post(
        [weak = std::weak_ptr(task), body = m_tools.body, block, stop = m_tools.stop, resume = m_tools.resume] {
            const auto wanted = weak.lock();
            if (!wanted)
                return;
            wanted->text = Bzip2Blocks::decode(*body, block, stop);
            wanted->isDone = true;
            resume();
        });
}

DecodeState Bzip2Decoder::takeText()
{
    if (m_ahead.empty() && m_blocks.state() == Bzip2Blocks::State::Complete)
        return DecodeState::Complete;
    if (m_ahead.empty() && m_blocks.state() == Bzip2Blocks::State::Doubtful)
        return goOnInOrder();
    if (m_ahead.empty() || !m_ahead.front()->isDone)
        return DecodeState::Waiting;
    m_text = std::move(m_ahead.front()->text);
    m_rest = viewOf(m_text);
    m_ahead.pop_front();
    return m_rest.empty() ? goOnInOrder() : DecodeState::Going;
}

DecodeState Bzip2Decoder::goOnInOrder()
{
    m_ahead.clear();
    m_text.clear();
    m_inOrder = std::make_unique<Bzip2Stream>(m_tools.body, m_sizeWritten);
    return DecodeState::Going;
}
