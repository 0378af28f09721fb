#pragma once

#include "actions/PrivateDirectory.h"
#include "http/request/Outcome.h"
#include "http/request/Receiver.h"

#include <QByteArray>
#include <QCryptographicHash>

#include <cstdint>
#include <memory>

// What is known of an answer when its archive is judged.
struct ArchiveAnswer
{
    bool hasTransportError = false;
    std::int64_t length = 0;
    int status = 0;
};

// No transport error, at least 1000 bytes, status 200: tested in this order.
bool isAcceptable(const ArchiveAnswer& answer);

// Writes the body of one answer into a new file of the directory as it comes, so that memory does not grow with it. The
// body of any other status than 200 is not taken in.
class ArchiveReceiver : public http::Receiver
{
public:
    // No directory is one that cannot be written to.
    explicit ArchiveReceiver(const PrivateDirectory* directory)
        : m_directory(directory)
    {
    }

    bool begin(int status) override;
    bool receive(std::string_view piece) override;

    // The SHA-256 of the body as it came, in hexadecimal digits.
    QByteArray digest() const { return m_digest.result().toHex(); }
    // For the end of the transfer: the file, when the answer is acceptable, else null. What is not taken disappears.
    std::unique_ptr<PartialFile> takeFile(const http::Outcome& outcome);

private:
    const PrivateDirectory* m_directory;
    std::unique_ptr<PartialFile> m_file;
    std::int64_t m_length = 0;
    QCryptographicHash m_digest{ QCryptographicHash::Sha256 };
};
