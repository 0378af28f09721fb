// Any bytes, as a body of each kind that comes in pieces of any size, and as the status file: nothing may crash, what
// comes out must hang together, and it must be what the plain definition says.
#include "catalog/index/DpkgStatus.h"
#include "tests/catalog/decode/PlainReference.h"
#include "tests/catalog/index/PlainReading.h"
#include "tests/catalog/index/ReadIndex.h"
#include "tests/fuzz/Require.h"

#include <algorithm>

namespace {

IndexJob jobFor(Compression compression)
{
    static const auto order = std::make_shared<const NameOrder>(QStringLiteral("en"));
    IndexJob job;
    job.compression = compression;
    job.repository = std::make_shared<VeskRepository>();
    job.nameOrder = order;
    return job;
}

// Latin-1 becomes twice as long at most.
bool hasLongLine(const QByteArray& body, Compression compression)
{
    const PlainlyDecoded decoded = plainlyDecoded(body, compression);
    const QList<QByteArray> lines = (decoded.isSound ? decoded.text : body).split('\n');
    return std::any_of(lines.begin(), lines.end(),
        [](const QByteArray& line) { return line.size() * 2 > qsizetype(IndexLimits::fieldSize); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const QByteArray body(reinterpret_cast<const char*>(data + 2), static_cast<qsizetype>(size - 2));
    const auto compression = static_cast<Compression>(data[0] % 3);
    const ParsedIndex index = readIndexInPieces(jobFor(compression), body, 1 + data[1], sharedWorkers());
    require(index.nameKeys.size() == index.packages.size());
    // The plain definition cuts no field.
    if (!hasLongLine(body, compression))
        require(fieldsOf(index.packages) == plainlyRead(body, compression));
    DpkgStatus::fromBytes(body).versionOf("a");
    return 0;
}
