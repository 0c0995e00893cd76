#include "tests/support/MessageBoxWatcher.h"

#include "tests/support/WindowClass.h"

#include "runtime/com/Errors.h"

#include <algorithm>

namespace kiv::test
{

namespace
{

constexpr DWORD PollMilliseconds = 5;

std::wstring TextOf(HWND window)
{
    wchar_t text[1024] = {};
    GetWindowTextW(window, text, ARRAYSIZE(text));
    return text;
}

// Windows of a message box of their own accord, in the order in which they stand in it.
std::vector<HWND> PartsOf(HWND box)
{
    std::vector<HWND> parts;
    for (HWND part = GetWindow(box, GW_CHILD); part; part = GetWindow(part, GW_HWNDNEXT))
    {
        if (GetWindowLongW(part, GWL_STYLE) & WS_VISIBLE)
            parts.push_back(part);
    }
    return parts;
}

bool IsIcon(HWND part)
{
    return IsOfClass(part, "Static") && (GetWindowLongW(part, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
}

BOOL CALLBACK FindBox(HWND window, LPARAM found)
{
    if (!IsOfClass(window, "#32770") || !IsWindowVisible(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

} // namespace

MessageBoxWatcher::MessageBoxWatcher(DWORD thread) :
    watched_(thread), stop_(CreateEventW(nullptr, TRUE, FALSE, nullptr))
{
    if (!stop_)
        ThrowLastError();
    thread_.emplace([this] { Watch(); });
}

MessageBoxWatcher::~MessageBoxWatcher()
{
    Stop();
    CloseHandle(stop_);
}

const std::vector<ShownMessageBox>& MessageBoxWatcher::Stop()
{
    SetEvent(stop_);
    thread_.reset();
    return shown_;
}

void MessageBoxWatcher::Watch()
{
    HWND answered = nullptr;
    while (WaitForSingleObject(stop_, PollMilliseconds) == WAIT_TIMEOUT)
    {
        HWND box = nullptr;
        EnumThreadWindows(watched_, FindBox, reinterpret_cast<LPARAM>(&box));
        if (box && box != answered)
            Answer(box);
        answered = box;
    }
}

void MessageBoxWatcher::Answer(HWND box)
{
    ShownMessageBox shown;
    shown.Caption = TextOf(box);
    shown.Owner = GetWindow(box, GW_OWNER);
    HWND firstButton = nullptr;
    for (const HWND part : PartsOf(box))
    {
        if (IsOfClass(part, "Button"))
        {
            shown.Buttons.push_back(TextOf(part));
            firstButton = firstButton ? firstButton : part;
        }
        else if (IsIcon(part))
        {
            shown.Icon = reinterpret_cast<HICON>(SendMessageW(part, STM_GETICON, 0, 0));
        }
        else
        {
            shown.Text += TextOf(part);
        }
    }
    shown_.push_back(std::move(shown));
    PostMessageW(firstButton, BM_CLICK, 0, 0);
}

} // namespace kiv::test
