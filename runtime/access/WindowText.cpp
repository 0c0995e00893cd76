#include "runtime/access/WindowText.h"

#include "runtime/core/Mnemonic.h"

#include <algorithm>
#include <array>
#include <cwchar>

namespace kiv
{

namespace
{

bool IsShown(HWND window)
{
    return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

// The next one before it that can be seen.
HWND ShownBefore(HWND window)
{
    HWND before = GetWindow(window, GW_HWNDPREV);
    while (before && !IsShown(before))
        before = GetWindow(before, GW_HWNDPREV);
    return before;
}

bool IsAlone(HWND window)
{
    const HWND parent = GetAncestor(window, GA_PARENT);
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (child != window && IsShown(child))
            return false;
    return true;
}

bool ShowsText(HWND window)
{
    std::array<wchar_t, 32> name = {};
    if (RealGetWindowClassW(window, name.data(), static_cast<UINT>(name.size())) == 0 ||
        _wcsicmp(name.data(), L"Static") != 0)
        return false;
    constexpr LONG_PTR textual[] = {SS_LEFT, SS_CENTER, SS_RIGHT, SS_SIMPLE, SS_LEFTNOWORDWRAP};
    return std::ranges::find(textual, GetWindowLongPtrW(window, GWL_STYLE) & SS_TYPEMASK) !=
           std::end(textual);
}

} // namespace

std::wstring CaptionOf(HWND window)
{
    std::array<wchar_t, 1024> text = {};
    const int length = InternalGetWindowText(window, text.data(), static_cast<int>(text.size()));
    return std::wstring(text.data(), static_cast<std::size_t>(std::max(length, 0)));
}

std::wstring PrecedingLabel(HWND window)
{
    // Not beyond the form.
    for (; window && (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0;
         window = GetAncestor(window, GA_PARENT))
    {
        if (const HWND before = ShownBefore(window))
        {
            if (!ShowsText(before))
                return {};
            const bool hasMnemonic = (GetWindowLongPtrW(before, GWL_STYLE) & SS_NOPREFIX) == 0;
            return hasMnemonic ? WithoutMnemonic(CaptionOf(before)) : CaptionOf(before);
        }
        if (!IsAlone(window))
            return {};
    }
    return {};
}

} // namespace kiv
