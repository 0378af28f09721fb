#pragma once

#include "catalog/index/IndexJob.h"
#include "catalog/index/IndexParser.h"
#include "catalog/query/ParsedIndex.h"
#include "catalog/text/TextDecoding.h"

// The bytes of an index in a known encoding, fed in pieces, turned into packages with all that searching and sorting
// need. Of packages with one identifier only the first is made. Lives on one thread at a time, at one place.
class IndexTextReader
{
public:
    enum class Encoding { Utf8, Latin1 };
    enum class State {
        Sound,
        // To be read anew as Latin-1.
        NotUtf8,
        // Beyond the limit of packages.
        Refused,
    };

    // The job and the status must outlive this.
    IndexTextReader(const IndexJob& job, const DpkgStatus& status, Encoding encoding);
    IndexTextReader(const IndexTextReader&) = delete;
    IndexTextReader& operator=(const IndexTextReader&) = delete;

    // The first piece holds all of a byte order mark, if there is one. False once no more is wanted.
    bool feed(std::string_view bytes);
    // The end of the text.
    State finish();
    // Once, after a sound finish.
    ParsedIndex takeIndex() { return std::move(m_index); }

private:
    void parse(std::string_view utf8);
    bool isBeyondLimits() const;
    void indexNewPackages(const PackageVector& packages);

    const IndexJob& m_job;
    Encoding m_encoding;
    State m_state = State::Sound;
    Utf8Check m_check;
    IndexParser m_parser;
    ParsedIndex m_index;
};
