#include "catalog/sources/DefaultSources.h"

#include <array>

namespace {

struct DefaultSource
{
    QLatin1String name;
    QLatin1String root;
};

// Scheme and host alone: no path and no "/" at the end.
constexpr std::array<DefaultSource, 4> defaultSources{ {
    { QLatin1String("Chariz"), QLatin1String("https://repo.chariz.com") },
    { QLatin1String("Havoc"), QLatin1String("https://havoc.app") },
    { QLatin1String("ElleKit"), QLatin1String("https://ellekit.space") },
    { QLatin1String("Frida"), QLatin1String("https://build.frida.re") },
} };

} // namespace

std::vector<VeskRepositoryPtr> makeDefaultSources()
{
    std::vector<VeskRepositoryPtr> sources;
    sources.reserve(defaultSources.size());
    for (const DefaultSource& source : defaultSources)
        sources.push_back(VeskRepository::repositoryWithURLString(source.root, source.name));
    return sources;
}
