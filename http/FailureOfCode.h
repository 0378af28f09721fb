#pragma once

#include "http/request/Outcome.h"

#include <curl/curl.h>

namespace http {

// What the library's word on the end of an exchange comes to.
enum class HeadState { Ended, Missing };
Failure failureOf(CURLcode code, HeadState head);

} // namespace http
