#pragma once

#include "catalog/index/IndexJob.h"
#include "catalog/query/ParsedIndex.h"

#include <functional>
#include <memory>
#include <stop_token>
#include <string_view>

class Workers;

// Decompresses, decodes and parses one index while its body arrives. A body that does not decompress is read as it is;
// bytes that are not UTF-8 are Latin-1. What comes of a body does not depend on the pieces in which it comes.
class IndexReading
{
public:
    // Without packages when there is none in the body, or when it is beyond the limits.
    using Done = std::function<void(ParsedIndex index)>;

    // Done is called once, on a worker, when the body is whole and read. The workers must outlive this.
    IndexReading(IndexJob job, Workers& workers, const std::stop_token& stop, Done done);
    // Destroying this ends the work within one step, and so does the stop that is asked for: done is not called then,
    // if it has not been already.
    ~IndexReading();
    IndexReading(const IndexReading&) = delete;
    IndexReading& operator=(const IndexReading&) = delete;

    // The next piece of the body; it is copied. Safe on any one thread at a time, as is the next.
    void receive(std::string_view bytes);
    // The whole body has come.
    void finish();

private:
    class Work;
    std::shared_ptr<Work> m_work;
};
