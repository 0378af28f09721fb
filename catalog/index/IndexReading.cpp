#include "catalog/index/IndexReading.h"

#include "catalog/index/IndexPass.h"

#include <mutex>
#include <utility>

using Encoding = IndexPass::Encoding;
using Outcome = IndexPass::Outcome;

// What the steps of the reading hold on to: passes over the body, one after the other, until one has an outcome to go
// by.
class IndexReading::Work : public std::enable_shared_from_this<Work>
{
public:
    Work(IndexJob job, Workers& workers, const std::stop_token& stop, Done done)
        : m_onStop(stop, StopRequest{ m_stop })
        , m_source(new IndexSource{ .job = std::move(job), .workers = workers, .stop = m_stop.get_token() })
        , m_done(std::move(done))
    {
    }

    Workers& workers() const { return m_source->workers; }
    void requestStop() { m_stop.request_stop(); }

    void receive(std::string_view bytes);
    void finish();

private:
    struct StopRequest
    {
        std::stop_source& source;
        void operator()() const { source.request_stop(); }
    };

    std::shared_ptr<IndexPass> pass();
    std::shared_ptr<IndexPass> makePass(Compression compression, Encoding encoding);
    void passOver(Compression compression, Encoding encoding);
    void accept(IndexPass& pass, Outcome outcome);
    void settle(ParsedIndex index);
    void deliver();

    std::stop_source m_stop;
    std::stop_callback<StopRequest> m_onStop;
    std::shared_ptr<IndexSource> m_source;
    Done m_done;

    // Guards what is below: who receives and the workers use it.
    std::mutex m_mutex;
    // None before anything has come, and none any more when the index is there.
    std::shared_ptr<IndexPass> m_pass;
    std::optional<ParsedIndex> m_index;
    bool m_isWhole = false;
};

void IndexReading::Work::receive(std::string_view bytes)
{
    m_source->body->append(bytes);
    if (const auto pass = this->pass())
        pass->goOn();
}

void IndexReading::Work::finish()
{
    m_source->body->finish();
    const auto pass = this->pass();
    if (pass)
        pass->goOn();
    const std::lock_guard lock(m_mutex);
    m_isWhole = true;
    if (m_index)
        workers().post([self = shared_from_this()] { self->deliver(); });
}

std::shared_ptr<IndexPass> IndexReading::Work::pass()
{
    const std::lock_guard lock(m_mutex);
    if (!m_pass && !m_index)
        m_pass = makePass(m_source->job.compression, Encoding::Utf8);
    return m_pass;
}

std::shared_ptr<IndexPass> IndexReading::Work::makePass(Compression compression, Encoding encoding)
{
    const auto done = [weak = weak_from_this()](IndexPass& pass, Outcome outcome) {
        if (const auto self = weak.lock())
            self->accept(pass, outcome);
    };
    return std::make_shared<IndexPass>(m_source, compression, encoding, done);
}

// From the first byte on again.
void IndexReading::Work::passOver(Compression compression, Encoding encoding)
{
    const auto pass = makePass(compression, encoding);
    {
        const std::lock_guard lock(m_mutex);
        m_pass = pass;
    }
    pass->goOn();
}

void IndexReading::Work::accept(IndexPass& pass, Outcome outcome)
{
    switch (outcome) {
    case Outcome::Sound:
        return settle(pass.takeIndex());
    case Outcome::NotUtf8:
        return passOver(pass.compression(), Encoding::Latin1);
    case Outcome::Refused:
        return settle({});
    case Outcome::Broken:
        return passOver(Compression::None, Encoding::Utf8);
    }
}

void IndexReading::Work::settle(ParsedIndex index)
{
    {
        const std::lock_guard lock(m_mutex);
        m_index = std::move(index);
        m_pass.reset();
        if (!m_isWhole)
            return;
    }
    deliver();
}

void IndexReading::Work::deliver()
{
    if (!m_stop.stop_requested())
        m_done(std::move(*m_index));
}

IndexReading::IndexReading(IndexJob job, Workers& workers, const std::stop_token& stop, Done done)
    : m_work(std::make_shared<Work>(std::move(job), workers, stop, std::move(done)))
{
}

// What has been read so far is let go of on a worker: it can be much.
IndexReading::~IndexReading()
{
    m_work->requestStop();
    Workers& workers = m_work->workers();
    workers.post([work = std::move(m_work)] {});
}

void IndexReading::receive(std::string_view bytes)
{
    m_work->receive(bytes);
}

void IndexReading::finish()
{
    m_work->finish();
}
