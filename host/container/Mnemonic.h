#pragma once

#include <windows.h>

#include <string_view>

namespace kiv::host
{

// Whether the message is Alt with the letter that "&" marks in the caption ("&&" is a plain ampersand).
bool HasMnemonicOf(std::wstring_view caption, const MSG& message);

} // namespace kiv::host
