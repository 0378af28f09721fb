#pragma once

#include "catalog/decode/ReceivedBody.h"
#include "catalog/index/DpkgStatus.h"
#include "catalog/index/IndexJob.h"

#include <memory>
#include <optional>
#include <stop_token>

class Workers;

// What every pass over a body stands on.
struct IndexSource
{
    IndexJob job;
    Workers& workers;
    std::stop_token stop;
    std::shared_ptr<ReceivedBody> body = std::make_shared<ReceivedBody>();
    // Read by the first pass that parses.
    std::optional<DpkgStatus> status;
};
