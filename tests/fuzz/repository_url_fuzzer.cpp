// Any text as a URL: it is refused or kept to the letter, and its host is part of it.
#include "catalog/records/RepositoryURL.h"
#include "catalog/records/VeskRepository.h"
#include "tests/fuzz/Require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto url = RepositoryURL::fromString(text);
    require(!url || (url->absoluteString() == text && text.contains(url->host())));
    VeskRepository::repositoryWithURLString(text, QString());
    return 0;
}
