#pragma once

#include "catalog/decode/IndexDecoder.h"

#include <limits>

// Where the passes of a decoder write to. It counts what they produce and keeps to the limit.
class DecodeOutput
{
public:
    DecodeOutput(std::size_t maximumSize, DecodeTarget& target)
        : m_maximumSize(maximumSize)
        , m_target(target)
    {
    }

    std::size_t size() const { return m_size; }

    // The output space of the next pass; null when no more is wanted.
    char* window() { return m_target.window(); }

    // Whether what the pass produced is within the limit.
    bool take(std::size_t produced)
    {
        if (produced > m_maximumSize - m_size)
            return false;
        m_size += produced;
        if (produced != 0)
            m_target.accept(produced);
        return true;
    }

    DecodeResult atEnd() const { return m_size == 0 ? DecodeResult::Broken : DecodeResult::Complete; }

private:
    std::size_t m_maximumSize;
    DecodeTarget& m_target;
    std::size_t m_size = 0;
};

inline bool fitsOneCall(std::string_view body)
{
    return !body.empty() && body.size() <= std::numeric_limits<unsigned>::max();
}

// The libraries take their input through pointers to non-const bytes, which they do not write to.
inline char* inputOf(std::string_view body)
{
    return const_cast<char*>(body.data());
}
