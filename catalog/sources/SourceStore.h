#pragma once

#include <QString>

#include <optional>
#include <vector>

// What is kept of one source. The texts are never null.
struct StoredSource
{
    QString url;
    QString name;
    bool enabled = false;

    bool operator==(const StoredSource&) const = default;
};

// Where the list of sources is kept between two runs. Used on the main thread; nothing throws.
class SourceStore
{
public:
    virtual ~SourceStore() = default;

    // None when no list is stored, or what is stored is not a list.
    virtual std::optional<std::vector<StoredSource>> sources() const = 0;
    // Replaces the stored list and brings it to the disk before it returns. False when that failed: the old list still
    // stands, or the new one is not yet safe from a loss of power.
    virtual bool setSources(const std::vector<StoredSource>& sources) = 0;
};
