#pragma once

#include <string>
#include <string_view>

namespace kiv::host
{

// Between the UTF-8 of files and the UTF-16 of Windows; what has no counterpart becomes U+FFFD.
std::string Utf8(std::wstring_view text);
std::wstring Wide(std::string_view text);

// "0x80040154 (Class not registered)"
std::string DescribeResult(long result);

} // namespace kiv::host
