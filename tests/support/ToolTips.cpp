#include "tests/support/ToolTips.h"

#include "tests/support/WindowClass.h"

#include <commctrl.h>

namespace kiv::test
{

namespace
{

BOOL CALLBACK AddToolTip(HWND window, LPARAM tips)
{
    if (IsOfClass(window, TOOLTIPS_CLASSA))
        reinterpret_cast<std::vector<HWND>*>(tips)->push_back(window);
    return TRUE;
}

std::wstring TextOfTip(HWND tip)
{
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    if (!SendMessageW(tip, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool)))
        return {};
    std::wstring text(4096, L'\0');
    tool.lpszText = text.data();
    SendMessageW(tip, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
    text.resize(wcslen(text.c_str()));
    return text;
}

} // namespace

std::vector<HWND> ToolTips()
{
    std::vector<HWND> tips;
    EnumThreadWindows(GetCurrentThreadId(), AddToolTip, reinterpret_cast<LPARAM>(&tips));
    return tips;
}

std::wstring ShownToolTip()
{
    for (const HWND tip : ToolTips())
    {
        if (IsWindowVisible(tip))
            return TextOfTip(tip);
    }
    return {};
}

} // namespace kiv::test
