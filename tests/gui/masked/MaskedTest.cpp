#include "tests/gui/masked/MaskedTest.h"

namespace kiv::test
{

HostedBox MaskedTest::ShownNumberBox()
{
    HostedBox box = AddNumberBox();
    ShowForm();
    box.Site().Focus();
    box.TakeEvents();
    return box;
}

HostedBox MaskedTest::ShownDateBox()
{
    HostedBox box = AddDateBox();
    ShowForm();
    box.Site().Focus();
    box.TakeEvents();
    return box;
}

void MaskedTest::Type(std::wstring_view keys)
{
    for (const wchar_t key : keys)
    {
        const SHORT onKeyboard = VkKeyScanW(key);
        const auto code = static_cast<WORD>(onKeyboard & 0xFF);
        if (key == L'\x7F')
            TapKey(VK_DELETE);
        else if (key == L'\b')
            TapKey(VK_BACK);
        else if (onKeyboard == -1)
            TypeCharacter(key);
        else if (onKeyboard & 0x100)
            TapKey(code, {VK_SHIFT});
        else
            TapKey(code);
    }
    Settle();
}

} // namespace kiv::test
