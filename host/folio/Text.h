#pragma once

#include "runtime/com/Errors.h"

#include <string>
#include <string_view>

namespace kiv::host
{

// Between the UTF-8 of files and the UTF-16 of Windows; what has no counterpart becomes U+FFFD.
std::string Utf8(std::wstring_view text);
std::wstring Wide(std::string_view text);

// In words, why a call failed: "Class not registered"; what the object itself said of it, if it did.
std::string DescribeResult(long result);
std::string DescribeError(const ComError& error);

} // namespace kiv::host
