#include "runtime/core/Mnemonic.h"

namespace kiv
{

wchar_t MnemonicOf(std::wstring_view caption)
{
    for (std::size_t at = 0; at + 1 < caption.size(); ++at)
    {
        if (caption[at] != L'&')
            continue;
        ++at;
        if (caption[at] != L'&')
            return caption[at];
    }
    return 0;
}

std::wstring WithoutMnemonic(std::wstring_view caption)
{
    std::wstring shown;
    for (std::size_t at = 0; at < caption.size(); ++at)
    {
        if (caption[at] == L'&' && at + 1 < caption.size())
            ++at;
        shown += caption[at];
    }
    return shown;
}

} // namespace kiv
