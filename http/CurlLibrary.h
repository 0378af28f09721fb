#pragma once

#include <curl/curl.h>

namespace http {

// The functions of libcurl that are used here. With all that it needs in turn it is a sixth of the libraries of the
// program, which would otherwise be loaded before the first picture; so it is loaded by who first asks for something.
struct CurlLibrary
{
    CurlLibrary();

    decltype(&::curl_easy_cleanup) easyCleanup = nullptr;
    decltype(&::curl_easy_getinfo) easyGetInfo = nullptr;
    decltype(&::curl_easy_header) easyHeader = nullptr;
    decltype(&::curl_easy_init) easyInit = nullptr;
    decltype(&::curl_easy_setopt) easySetOption = nullptr;
    decltype(&::curl_free) free = nullptr;
    decltype(&::curl_multi_add_handle) multiAddHandle = nullptr;
    decltype(&::curl_multi_cleanup) multiCleanup = nullptr;
    decltype(&::curl_multi_info_read) multiInfoRead = nullptr;
    decltype(&::curl_multi_init) multiInit = nullptr;
    decltype(&::curl_multi_perform) multiPerform = nullptr;
    decltype(&::curl_multi_poll) multiPoll = nullptr;
    decltype(&::curl_multi_remove_handle) multiRemoveHandle = nullptr;
    decltype(&::curl_multi_wakeup) multiWakeup = nullptr;
    decltype(&::curl_slist_append) slistAppend = nullptr;
    decltype(&::curl_slist_free_all) slistFreeAll = nullptr;
    decltype(&::curl_url) url = nullptr;
    decltype(&::curl_url_cleanup) urlCleanup = nullptr;
    decltype(&::curl_url_get) urlGet = nullptr;
    decltype(&::curl_url_set) urlSet = nullptr;
    decltype(&::curl_global_init) globalInit = nullptr;
};

// Loads the library once and makes it ready for the process; on any thread. A program without it ends with a sentence
// on standard error.
const CurlLibrary& curl();

} // namespace http
