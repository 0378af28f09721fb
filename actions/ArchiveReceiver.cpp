#include "actions/ArchiveReceiver.h"

#include <utility>

namespace {

constexpr std::int64_t smallestArchive = 1000;
constexpr int statusOK = 200;

} // namespace

bool isAcceptable(const ArchiveAnswer& answer)
{
    if (answer.hasTransportError)
        return false;
    if (answer.length < smallestArchive)
        return false;
    return answer.status == statusOK;
}

bool ArchiveReceiver::begin(int status)
{
    if (status == statusOK && m_directory)
        m_file = m_directory->makeFile();
    return m_file != nullptr;
}

bool ArchiveReceiver::receive(std::string_view piece)
{
    m_length += static_cast<std::int64_t>(piece.size());
    m_digest.addData(QByteArrayView(piece.data(), static_cast<qsizetype>(piece.size())));
    return m_file->write(piece.data(), static_cast<qint64>(piece.size()));
}

std::unique_ptr<PartialFile> ArchiveReceiver::takeFile(const http::Outcome& outcome)
{
    auto file = std::exchange(m_file, nullptr);
    const ArchiveAnswer answer{ .hasTransportError = !outcome.isWhole(), .length = m_length, .status = outcome.status };
    return isAcceptable(answer) ? std::move(file) : nullptr;
}
