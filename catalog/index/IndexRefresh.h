#pragma once

#include "catalog/index/IndexReceiver.h"
#include "catalog/records/RepositoryURL.h"
#include "http/request/Network.h"

#include <QObject>

#include <functional>
#include <stop_token>

// The refresh of one source: tries the five index names one after the other until one brings packages.
// Lives on the main thread. Each body is read on the workers while the network brings it; what comes of it arrives in a
// queued call, which is dropped when the refresh is gone by then.
class IndexRefresh : public QObject
{
    Q_OBJECT

public:
    // All of it outlives the refresh, and the workers outlive the network too.
    struct Tools
    {
        http::Network& network;
        Workers& workers;
        // How an index is asked for; the URL is filled in.
        http::Request request;
        QStringList statusPaths;
        std::shared_ptr<const NameOrder> nameOrder;
        IndexLimits limits;
    };
    // No packages: every candidate failed.
    using Done = std::function<void(ParsedIndex parsed)>;

    // The first attempt begins in a later turn of the event loop. Done is called exactly once, and this deletes itself
    // then.
    IndexRefresh(VeskRepositoryPtr repository, const RepositoryURL& root, Tools tools, Done done, QObject* parent);
    // What is under way ends by itself, soon, and tells nobody.
    ~IndexRefresh() override;

private:
    void attempt(std::size_t index);
    void fetch(const RepositoryURL& url, std::size_t index);
    void acceptIndex(ParsedIndex parsed, std::size_t index);
    void finish(ParsedIndex parsed);

    VeskRepositoryPtr m_repository;
    QString m_base;
    Tools m_tools;
    Done m_done;
    // What the attempt under way has received; it is read for as long as this is here.
    std::shared_ptr<IndexReceiver> m_receiver;
    std::stop_source m_stop;
};
