#include "host/container/Mnemonic.h"

namespace kiv::host
{

namespace
{

wchar_t UpperCase(wchar_t letter)
{
    CharUpperBuffW(&letter, 1);
    return letter;
}

} // namespace

bool HasMnemonicOf(std::wstring_view caption, const MSG& message)
{
    if (message.message != WM_SYSCHAR)
        return false;
    for (std::size_t at = 0; at + 1 < caption.size(); ++at)
        if (caption[at] == L'&')
        {
            if (caption[at + 1] != L'&')
                return UpperCase(caption[at + 1]) == UpperCase(static_cast<wchar_t>(message.wParam));
            ++at;
        }
    return false;
}

} // namespace kiv::host
