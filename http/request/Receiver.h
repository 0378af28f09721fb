#pragma once

#include <string_view>

namespace http {

// Takes in the answer to one request, on the thread of the transfer. Nothing of it may throw or take long: with a
// Client the other transfers wait meanwhile. Answers that lead elsewhere are not shown to it, nor are interim ones.
class Receiver
{
public:
    Receiver() = default;
    virtual ~Receiver() = default;
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    // The head of the answer is there; called at most once. False when the body is not wanted: the transfer ends.
    virtual bool begin(int status) = 0;

    // The next piece of the body, 16 KiB at most, its encoding undone; never more in all than the limits allow, and
    // valid during the call. Whether the body is whole is known at the end only. False when no more is wanted.
    virtual bool receive(std::string_view piece) = 0;
};

} // namespace http
