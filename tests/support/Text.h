#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace kiv::test
{

// UTF-8 and back: test output and script output are bytes.
std::string Narrow(std::wstring_view text);
std::wstring Widen(std::string_view text);

// An HRESULT as failures print it, "0x80004005": compare these, so that a failed comparison can be read.
std::string Hr(HRESULT result);

// A GUID in registry form, with braces and upper-case digits.
std::wstring GuidText(REFGUID guid);

} // namespace kiv::test
