#pragma once

#include <cstddef>
#include <malloc.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VESK_SANITIZED_HEAP
#include <sanitizer/allocator_interface.h>
#endif
#endif

// Bytes that are asked for and not given back, by whichever allocator is at work.
inline std::size_t heapInUse()
{
#ifdef VESK_SANITIZED_HEAP
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}
