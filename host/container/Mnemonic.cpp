#include "host/container/Mnemonic.h"

#include "runtime/core/Mnemonic.h"

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
    const wchar_t letter = MnemonicOf(caption);
    return message.message == WM_SYSCHAR && letter != 0 &&
           UpperCase(letter) == UpperCase(static_cast<wchar_t>(message.wParam));
}

} // namespace kiv::host
