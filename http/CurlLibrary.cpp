#include "http/CurlLibrary.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <new>

namespace http {

namespace {

[[noreturn]] void giveUp()
{
    fprintf(stderr, "vesk: %s\n", dlerror());
    std::abort();
}

void* opened()
{
    void* const library = dlopen("libcurl.so.4", RTLD_LAZY | RTLD_LOCAL);
    if (!library)
        giveUp();
    return library;
}

template <typename Function> void find(void* library, const char* name, Function*& function)
{
    function = reinterpret_cast<Function*>(dlsym(library, name));
    if (!function)
        giveUp();
}

} // namespace

CurlLibrary::CurlLibrary()
{
    void* const library = opened();
    find(library, "curl_easy_cleanup", easyCleanup);
    find(library, "curl_easy_getinfo", easyGetInfo);
    find(library, "curl_easy_header", easyHeader);
    find(library, "curl_easy_init", easyInit);
    find(library, "curl_easy_setopt", easySetOption);
    find(library, "curl_free", free);
    find(library, "curl_multi_add_handle", multiAddHandle);
    find(library, "curl_multi_cleanup", multiCleanup);
    find(library, "curl_multi_info_read", multiInfoRead);
    find(library, "curl_multi_init", multiInit);
    find(library, "curl_multi_perform", multiPerform);
    find(library, "curl_multi_poll", multiPoll);
    find(library, "curl_multi_remove_handle", multiRemoveHandle);
    find(library, "curl_multi_wakeup", multiWakeup);
    find(library, "curl_slist_append", slistAppend);
    find(library, "curl_slist_free_all", slistFreeAll);
    find(library, "curl_url", url);
    find(library, "curl_url_cleanup", urlCleanup);
    find(library, "curl_url_get", urlGet);
    find(library, "curl_url_set", urlSet);
    find(library, "curl_global_init", globalInit);
    if (globalInit(CURL_GLOBAL_DEFAULT) != CURLE_OK)
        throw std::bad_alloc();
}

const CurlLibrary& curl()
{
    static const CurlLibrary library;
    return library;
}

} // namespace http
