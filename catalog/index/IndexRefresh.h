#pragma once

#include "catalog/index/IndexDownload.h"
#include "catalog/index/IndexReading.h"
#include "catalog/work/Workers.h"

#include <memory>

// The refresh of one source: tries the five index names one after the other until one brings packages.
// Lives on the main thread; decoding and parsing run on workers, and what they produce comes back in a queued call,
// which is dropped when the refresh is gone by then.
class IndexRefresh : public QObject
{
    Q_OBJECT

public:
    struct Tools
    {
        QNetworkAccessManager* network = nullptr;
        Workers* workers = nullptr;
        QStringList statusPaths;
        std::shared_ptr<const NameOrder> nameOrder;
        IndexLimits limits;
        DownloadLimits downloadLimits;
        // When this is asked for, reading ends at once.
        std::stop_token stop;
    };
    // No packages: every candidate failed.
    using Done = std::function<void(ParsedIndex parsed)>;

    // The first attempt begins in a later turn of the event loop. Done is called exactly once, and this deletes itself
    // then.
    IndexRefresh(VeskRepositoryPtr repository, const RepositoryURL& root, Tools tools, Done done, QObject* parent);
    ~IndexRefresh() override;

private:
    void attempt(std::size_t index);
    void read(const QByteArray& body, std::size_t index);
    void acceptIndex(ParsedIndex parsed, std::size_t index);
    void finish(ParsedIndex parsed);

    VeskRepositoryPtr m_repository;
    QString m_base;
    Tools m_tools;
    Done m_done;
    std::unique_ptr<IndexDownload> m_download;
    std::unique_ptr<IndexReading> m_reading;
};
