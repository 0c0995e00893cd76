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

std::wstring AccessKeyOf(std::wstring_view caption)
{
    const wchar_t letter = MnemonicOf(caption);
    return letter != 0 ? std::wstring(L"Alt+") + letter : std::wstring();
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
