// Any bytes, as a body of each kind and as the status file: nothing may crash, and what comes out must hang together.
#include "catalog/index/DpkgStatus.h"
#include "catalog/index/IndexReader.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    IndexJob job;
    job.body = QByteArray(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
    job.compression = static_cast<Compression>(data[0] % 3);
    job.repository = std::make_shared<VeskRepository>();
    static const auto order = std::make_shared<const NameOrder>(QStringLiteral("en"));
    job.nameOrder = order;
    job.limits.textSize = 1024 * 1024;
    const ParsedIndex index = readIndex(job);
    if (index.searchText.packageCount() != index.packages.size() || index.nameKeys.size() != index.packages.size())
        std::abort();
    for (const VeskPackagePtr& package : index.packages) {
        if (package->packageID().isEmpty() || package->name().isNull())
            std::abort();
    }
    const DpkgStatus status = DpkgStatus::fromBytes(job.body);
    status.versionOf("a");
    return 0;
}
