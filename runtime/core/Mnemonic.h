#pragma once

#include <string_view>

namespace kiv
{

// The letter that "&" marks in a caption, as it stands there ("&&" is a plain ampersand); 0 for none.
wchar_t MnemonicOf(std::wstring_view caption);

} // namespace kiv
