#pragma once

#include "catalog/index/IndexReading.h"
#include "http/request/Outcome.h"
#include "http/request/Receiver.h"

#include <memory>

// Passes the body of one answer on to a reading as it comes. The body of any other status than 200 is not wanted.
class IndexReceiver : public http::Receiver
{
public:
    explicit IndexReceiver(std::unique_ptr<IndexReading> reading)
        : m_reading(std::move(reading))
    {
    }

    bool begin(int status) override { return status == statusOK; }

    bool receive(std::string_view piece) override
    {
        m_reading->receive(piece);
        m_hasBody = true;
        return true;
    }

    // For the end of the transfer: whether there is a body to read, which the reading then brings to its end. Without
    // one, the reading tells of nothing.
    bool finish(const http::Outcome& outcome)
    {
        const bool isSound = outcome.isWhole() && outcome.status == statusOK && m_hasBody;
        if (isSound)
            m_reading->finish();
        return isSound;
    }

private:
    static constexpr int statusOK = 200;

    std::unique_ptr<IndexReading> m_reading;
    bool m_hasBody = false;
};
