#pragma once

#include <string_view>

// The libraries take their input through pointers to non-const bytes, which they do not write to.
inline char* inputOf(std::string_view bytes)
{
    return const_cast<char*>(bytes.data());
}
