#include "IndexReader.h"

#include "IndexParser.h"
#include "TextDecoding.h"

namespace {

enum class Encoding { Utf8, Latin1 };

enum class ReadResult { Complete, NotUtf8, NotDecoded, Refused };

// One attempt to read the body in one encoding.
class Attempt
{
public:
    Attempt(const IndexJob& job, const DpkgStatus& status, Encoding encoding)
        : m_job(job)
        , m_encoding(encoding)
        , m_parser(job.repository, status)
    {
    }

    ReadResult readDecoded()
    {
        const auto sink = [this](std::string_view bytes) { return take(bytes); };
        const auto decode = m_job.compression == Compression::Gzip ? decodeGzip : decodeBzip2;
        const DecodeResult result = decode(viewOf(m_job.body), m_job.limits.textSize, sink);
        if (result == DecodeResult::Stopped)
            return m_outcome;
        return result == DecodeResult::Complete ? atEnd() : ReadResult::NotDecoded;
    }

    ReadResult readPlain()
    {
        constexpr std::size_t stretch = 65536;
        std::string_view rest = viewOf(m_job.body);
        while (!rest.empty()) {
            if (!take(rest.substr(0, stretch)))
                return m_outcome;
            rest.remove_prefix(std::min(rest.size(), stretch));
        }
        return atEnd();
    }

    PackageVector packages() { return m_parser.finish(); }

private:
    bool take(std::string_view bytes)
    {
        if (m_job.cancelled && m_job.cancelled->load(std::memory_order_relaxed))
            return stop(ReadResult::Refused);
        if (m_encoding == Encoding::Latin1)
            m_parser.feed(viewOf(utf8FromLatin1(bytes)));
        else if (!m_check.feed(bytes))
            return stop(ReadResult::NotUtf8);
        else
            m_parser.feed(std::exchange(m_isFirst, false) ? withoutByteOrderMark(bytes) : bytes);
        return m_parser.packageCount() <= m_job.limits.packageCount || stop(ReadResult::Refused);
    }

    bool stop(ReadResult outcome)
    {
        m_outcome = outcome;
        return false;
    }

    ReadResult atEnd() const
    {
        return m_encoding == Encoding::Latin1 || m_check.isComplete() ? ReadResult::Complete : ReadResult::NotUtf8;
    }

    const IndexJob& m_job;
    Encoding m_encoding;
    bool m_isFirst = true;
    Utf8Check m_check;
    IndexParser m_parser;
    ReadResult m_outcome = ReadResult::Complete;
};

struct Reading
{
    ReadResult result = ReadResult::Refused;
    PackageVector packages;
};

template <typename Read> Reading readInEitherEncoding(const IndexJob& job, const DpkgStatus& status, Read read)
{
    Reading reading;
    for (const Encoding encoding : { Encoding::Utf8, Encoding::Latin1 }) {
        Attempt attempt(job, status, encoding);
        reading.result = read(attempt);
        if (reading.result == ReadResult::Complete)
            reading.packages = attempt.packages();
        if (reading.result != ReadResult::NotUtf8)
            break;
    }
    return reading;
}

} // namespace

PackageVector readIndex(const IndexJob& job)
{
    const DpkgStatus status = DpkgStatus::read(job.statusPaths);
    if (job.compression != Compression::None) {
        Reading decoded = readInEitherEncoding(job, status, [](Attempt& attempt) { return attempt.readDecoded(); });
        if (decoded.result != ReadResult::NotDecoded)
            return std::move(decoded.packages);
    }
    return readInEitherEncoding(job, status, [](Attempt& attempt) { return attempt.readPlain(); }).packages;
}
