#pragma once

#include <string>
#include <string_view>

// An answer of 200 with these further header lines ("Name: value\r\n" each) and a fitting length.
std::string answerOf(std::string_view body, std::string_view headers = {});
// The same without a length, in chunks of so many bytes.
std::string chunkedAnswerOf(std::string_view body, std::size_t chunk, std::string_view headers = {});
