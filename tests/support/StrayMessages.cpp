#include "tests/support/StrayMessages.h"

#include "tests/support/WindowClass.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

constexpr UINT Beyond = 0x400; // WM_USER
constexpr UINT PopUpSystemMenu = 0x313;

// Left out, and why.
struct LeftOut
{
    UINT Message;
    const char* Why;
};

constexpr LeftOut EndsOrKeepsBusy[] = {
    {WM_DESTROY, "told to a window that is being destroyed"},
    {WM_NCDESTROY, "the last that a window hears"},
    {WM_CLOSE, "asks the window to go"},
    {WM_QUIT, "is for the message loop"},
    {WM_QUERYENDSESSION, "the session is about to end"},
    {WM_ENDSESSION, "the session ends"},
    {WM_SYSCOMMAND, "lets the user move, size or close the window"},
    {WM_CONTEXTMENU, "shows a menu and waits for the user"},
    {WM_RBUTTONUP, "asks for the menu"},
    {PopUpSystemMenu, "shows the system menu and waits for the user"},
};

bool IsLeftOut(HWND window, UINT message)
{
    const auto isIt = [&](const LeftOut& each) { return each.Message == message; };
    const auto kills = [&](const DeadlyMessage& each) {
        return each.Message == message && IsOfClass(window, each.Class);
    };
    // A press and its end are a click. The button of a list opens the picker, and those of the picker close
    // it.
    const bool clicks = IsOfClass(window, "Button") &&
                        (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == BM_CLICK);
    // A double click in the picker's list closes it.
    const bool chooses = IsOfClass(window, "ListBox") && message == WM_LBUTTONDBLCLK;
    // For a text that is not there, Wine's lists take whatever lies in the heap. This one is the system's
    // alone.
    const bool addsAnything =
        IsOfClass(window, "ComboLBox") && (message == LB_ADDSTRING || message == LB_INSERTSTRING);
    return clicks || chooses || addsAnything || std::ranges::any_of(EndsOrKeepsBusy, isIt) ||
           std::ranges::any_of(DeadlyMessages(), kills);
}

BOOL CALLBACK Collect(HWND window, LPARAM windows)
{
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

} // namespace

std::vector<HWND> WindowsOf(HWND window)
{
    std::vector<HWND> windows = {window};
    EnumChildWindows(window, Collect, reinterpret_cast<LPARAM>(&windows));
    std::vector<HWND> lists;
    for (const HWND each : windows)
    {
        COMBOBOXINFO information = {};
        information.cbSize = sizeof information;
        if (IsOfClass(each, "ComboBox") && GetComboBoxInfo(each, &information))
            lists.push_back(information.hwndList);
    }
    windows.insert(windows.end(), lists.begin(), lists.end());
    return windows;
}

void SendStrayMessages(HWND window)
{
    for (UINT message = 0; message < Beyond; ++message)
    {
        if (IsLeftOut(window, message))
            continue;
        // A scroll bar follows the mouse until the button is up.
        if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK)
            PostMessageA(window, WM_LBUTTONUP, 0, 0);
        SendMessageA(window, message, 0, 0);
    }
    // No window is painted any more after it was told so.
    SendMessageA(window, WM_SETREDRAW, TRUE, 0);
}

const std::vector<DeadlyMessage>& DeadlyMessages()
{
    static const std::vector<DeadlyMessage> messages = {
        {"Edit", EM_GETLINE},
        {"ListBox", LB_GETITEMRECT},
        {"ComboLBox", LB_GETITEMRECT},
    };
    return messages;
}

} // namespace kiv::test
