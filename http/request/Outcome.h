#pragma once

namespace http {

enum class Failure {
    // The answer is whole, whatever its status. A body of which the answer tells no length ends where the connection
    // does,
    // and one that is encoded where the encoded bytes do: whether the server meant to go on cannot be known.
    None,
    // Told to stop.
    Cancelled,
    // The receiver wanted no (more) body.
    Refused,
    // The URL is none of http or https; nothing was sent.
    BadAddress,
    // The answer leads where none may, nowhere, or in circles.
    BadRedirect,
    // The name is unknown or nobody accepts connections.
    Unreachable,
    // TLS failed, or the server's certificate is not trusted.
    Untrusted,
    // The connection ended before there was an answer, or what came is none of HTTP.
    NoAnswer,
    // The body broke off, or its framing or encoding is damaged.
    BrokenBody,
    // The body or the head is beyond the limits.
    TooLarge,
    // Nothing came for as long as the limits allow.
    Silent,
    // Slower than the limits allow.
    TooSlow,
};

struct Outcome
{
    Failure failure = Failure::None;
    // Of the last answer whose head came whole, 0 when there was none.
    int status = 0;

    bool isWhole() const { return failure == Failure::None; }
};

} // namespace http
