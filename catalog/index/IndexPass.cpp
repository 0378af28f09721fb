#include "catalog/index/IndexPass.h"

#include <utility>

namespace {

IndexPass::Outcome outcomeOf(IndexTextReader::State state)
{
    switch (state) {
    case IndexTextReader::State::NotUtf8:
        return IndexPass::Outcome::NotUtf8;
    case IndexTextReader::State::Refused:
        return IndexPass::Outcome::Refused;
    case IndexTextReader::State::Sound:
        break;
    }
    return IndexPass::Outcome::Sound;
}

} // namespace

IndexPass::IndexPass(std::shared_ptr<IndexSource> source, Compression compression, Encoding encoding, Done done)
    : m_source(std::move(source))
    , m_compression(compression)
    , m_encoding(encoding)
    , m_done(std::move(done))
    , m_decoding(m_source->workers)
    , m_parsing(m_source->workers)
{
}

// The step that is posted already finds all that has come until it begins.
void IndexPass::goOn()
{
    if (!m_isStepPosted.exchange(true))
        postTo(m_decoding, [](IndexPass& pass) { pass.decodeStep(); });
}

template <typename Step> void IndexPass::postTo(Strand& strand, Step step)
{
    strand.post([weak = weak_from_this(), step] {
        const auto pass = weak.lock();
        if (pass && !pass->m_source->stop.stop_requested())
            step(*pass);
    });
}

// A full batch goes out at the beginning of the next step, not at the end of its own: then this thread stays with the
// decoding, and another one takes up the parsing.
void IndexPass::decodeStep()
{
    m_isStepPosted.exchange(false);
    if (m_isDecoded)
        return;
    if (!m_decoder)
        makeDecoder();
    if (m_batch && m_batch->isFull())
        handOut();
    if (!m_batch)
        m_batch = m_ring.take();
    if (!m_batch)
        return;
    const DecodeState state = decodeMore();
    if (state == DecodeState::Going)
        return goOn();
    if (state == DecodeState::Waiting)
        return;
    m_isDecoded = true;
    handOut();
    postTo(m_parsing, [state](IndexPass& pass) { pass.endText(state); });
}

// Text that came as it is has no limit but that of the body, and may be empty.
DecodeState IndexPass::decodeMore()
{
    const std::size_t sizeBefore = m_batch->text().size();
    const DecodeState state = m_decoder->decode(*m_batch);
    const std::size_t produced = m_batch->text().size() - sizeBefore;
    if (m_compression == Compression::None)
        return state;
    const std::size_t left = m_source->job.limits.textSize - m_textSize;
    if (produced > left) {
        m_batch->shrinkTo(sizeBefore + left);
        return DecodeState::Broken;
    }
    m_textSize += produced;
    return state == DecodeState::Complete && m_textSize == 0 ? DecodeState::Broken : state;
}

// The status file is read meanwhile.
void IndexPass::makeDecoder()
{
    postTo(m_parsing, [](IndexPass& pass) { pass.reader(); });
    const auto resume = [weak = weak_from_this()] {
        if (const auto pass = weak.lock())
            pass->goOn();
    };
    m_decoder = ::makeDecoder(m_compression, { m_source->body, m_source->workers, m_source->stop, resume });
}

void IndexPass::handOut()
{
    const TextBatch& batch = *std::exchange(m_batch, nullptr);
    postTo(m_parsing, [&batch](IndexPass& pass) { pass.parse(batch); });
}

IndexTextReader& IndexPass::reader()
{
    if (!m_source->status)
        m_source->status = DpkgStatus::read(m_source->job.statusPaths);
    if (!m_reader)
        m_reader.emplace(m_source->job, *m_source->status, m_encoding);
    return *m_reader;
}

void IndexPass::parse(const TextBatch& batch)
{
    if (m_isConcluded)
        return;
    if (!reader().feed(batch.text()))
        return conclude(outcomeOf(reader().finish()));
    if (m_ring.giveBack())
        goOn();
}

void IndexPass::endText(DecodeState state)
{
    if (m_isConcluded)
        return;
    if (state == DecodeState::Broken)
        return conclude(Outcome::Broken);
    conclude(outcomeOf(reader().finish()));
}

void IndexPass::conclude(Outcome outcome)
{
    m_isConcluded = true;
    m_done(*this, outcome);
}
