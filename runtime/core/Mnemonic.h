#pragma once

#include <string>
#include <string_view>

namespace kiv
{

// The letter that "&" marks in a caption, as it stands there ("&&" is a plain ampersand); 0 for none.
wchar_t MnemonicOf(std::wstring_view caption);

// The keys that lead there: "Alt+" and that letter; empty for none.
std::wstring AccessKeyOf(std::wstring_view caption);

// The caption as it is shown: no mark, and one ampersand for two.
std::wstring WithoutMnemonic(std::wstring_view caption);

} // namespace kiv
