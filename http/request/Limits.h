#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>

namespace http {

// The bounds that keep a hostile or broken server from holding a transfer for ever.
struct Limits
{
    // Longest silence of the server, counted from when the request was sent and from every byte that came, those of
    // headers included. The look-up of the name, the connection and its TLS together may take as long once more.
    std::chrono::milliseconds inactivity = std::chrono::seconds(30);

    // A transfer that has taken longer than this must have come at slowestRate (bytes a second) or better on the
    // average. A phone at the edge of its network gets some 20 KiB a second; below 16 nobody waits for a package.
    std::chrono::milliseconds patience = std::chrono::minutes(10);
    std::int64_t slowestRate = std::int64_t(16) * 1024;

    // Bytes, both as they come and after an encoding is undone. Enough for every icon and index; whoever streams a body
    // to the disk may allow more.
    std::int64_t largestBody = std::int64_t(256) * 1024 * 1024;

    // When set, nothing takes longer than this, however fast it comes.
    std::optional<std::chrono::milliseconds> deadline;

    // How long a transfer may take, redirects included, of whose body so many bytes came.
    std::chrono::milliseconds timeAllowed(std::int64_t received) const
    {
        const std::chrono::milliseconds earned(received * 1000 / std::max<std::int64_t>(slowestRate, 1));
        const auto allowed = std::max(patience, earned);
        return deadline ? std::min(*deadline, allowed) : allowed;
    }
};

} // namespace http
