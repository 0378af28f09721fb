#pragma once

#include <string>
#include <string_view>

// A body as servers pack it: what `gzip`, "Content-Encoding: deflate" and `bzip2` make of it.
std::string gzipped(std::string_view body);
std::string deflated(std::string_view body);
std::string bzipped(std::string_view body);
