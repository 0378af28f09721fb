#pragma once

#include "http/request/Request.h"

#include <QUrl>

// How sources are asked, for indexes and archives alike: by the User-Agent under which they know package managers, and
// by no other header of ours.
http::Request sourceRequest(const http::Limits& limits);

// The same request for a URL, which travels encoded and without its fragment.
http::Request aimedAt(http::Request request, const QUrl& url);
