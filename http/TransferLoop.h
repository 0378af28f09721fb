#pragma once

#include "http/TransferOptions.h"

#include <memory>
#include <vector>

namespace http {

class Transfer;

// Runs any number of transfers on the thread that calls turn(); all but wake() is for that thread.
class TransferLoop
{
public:
    TransferLoop();
    // Drops what runs, without calling anybody.
    ~TransferLoop();
    TransferLoop(const TransferLoop&) = delete;
    TransferLoop& operator=(const TransferLoop&) = delete;

    void add(std::unique_ptr<Transfer> transfer);
    bool isEmpty() const { return m_transfers.empty(); }
    // Waits for bytes, for a limit or for wake(), and does what there is to do.
    void turn();
    // From any thread.
    void wake();
    void clear();

private:
    void takeEnded();
    void endOverdue();
    void ended(Transfer& transfer, CURLcode code);
    std::unique_ptr<Transfer> remove(const Transfer& transfer);
    int patience() const;

    MultiHandle m_multi;
    std::vector<std::unique_ptr<Transfer>> m_transfers;
};

} // namespace http
