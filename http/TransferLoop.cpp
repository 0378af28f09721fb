#include "http/TransferLoop.h"

#include "http/CurlLibrary.h"
#include "http/Transfer.h"

#include <algorithm>
#include <utility>

namespace http {

TransferLoop::TransferLoop()
    : m_multi(makeMultiHandle())
{
}

TransferLoop::~TransferLoop()
{
    clear();
}

void TransferLoop::clear()
{
    for (const auto& transfer : m_transfers)
        curl().multiRemoveHandle(m_multi.get(), transfer->handle());
    m_transfers.clear();
}

void TransferLoop::add(std::unique_ptr<Transfer> transfer)
{
    if (const auto outcome = transfer->begin([this] { wake(); }))
        return transfer->end(*outcome);
    curl().multiAddHandle(m_multi.get(), transfer->handle());
    m_transfers.push_back(std::move(transfer));
}

void TransferLoop::turn()
{
    curl().multiPoll(m_multi.get(), nullptr, 0, patience(), nullptr);
    int running = 0;
    curl().multiPerform(m_multi.get(), &running);
    takeEnded();
    endOverdue();
}

void TransferLoop::wake()
{
    curl().multiWakeup(m_multi.get());
}

void TransferLoop::takeEnded()
{
    int left = 0;
    while (const CURLMsg* message = curl().multiInfoRead(m_multi.get(), &left)) {
        void* transfer = nullptr;
        curl().easyGetInfo(message->easy_handle, CURLINFO_PRIVATE, &transfer);
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): it is the library's
        ended(*static_cast<Transfer*>(transfer), message->data.result);
    }
}

void TransferLoop::ended(Transfer& transfer, CURLcode code)
{
    const auto outcome = transfer.finish(code);
    curl().multiRemoveHandle(m_multi.get(), transfer.handle());
    if (outcome)
        remove(transfer)->end(*outcome);
    else
        curl().multiAddHandle(m_multi.get(), transfer.handle());
}

void TransferLoop::endOverdue()
{
    const auto now = Pace::Clock::now();
    std::vector<std::pair<Transfer*, Failure>> overdue;
    for (const auto& transfer : m_transfers) {
        const Failure failure = transfer->verdict(now);
        if (failure != Failure::None)
            overdue.emplace_back(transfer.get(), failure);
    }
    for (const auto& [transfer, failure] : overdue) {
        curl().multiRemoveHandle(m_multi.get(), transfer->handle());
        remove(*transfer)->end({ .failure = failure, .status = transfer->status() });
    }
}

std::unique_ptr<Transfer> TransferLoop::remove(const Transfer& transfer)
{
    const auto found
        = std::find_if(m_transfers.begin(), m_transfers.end(), [&](const auto& one) { return one.get() == &transfer; });
    std::swap(*found, m_transfers.back());
    std::unique_ptr<Transfer> removed = std::move(m_transfers.back());
    m_transfers.pop_back();
    return removed;
}

// Milliseconds until the next limit; the library itself looks at its own times.
int TransferLoop::patience() const
{
    constexpr std::chrono::milliseconds longest = std::chrono::hours(1);
    auto due = Pace::Clock::now() + longest;
    for (const auto& transfer : m_transfers)
        due = std::min(due, transfer->due());
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(due - Pace::Clock::now());
    return static_cast<int>(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
}

} // namespace http
