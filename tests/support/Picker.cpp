#include "tests/support/Picker.h"

#include "tests/support/Input.h"
#include "tests/support/Thread.h"
#include "tests/support/WindowClass.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

// Ten thousand rows take seconds on a heap that is checked at each step and has seen a thousand tests.
constexpr ULONGLONG LimitMilliseconds = 30000;
constexpr DWORD PollMilliseconds = 2;

BOOL CALLBACK FindShown(HWND window, LPARAM found)
{
    if (!IsOfClass(window, "KivControls.Form") || !IsWindowVisible(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

} // namespace

std::wstring WindowText(HWND window)
{
    wchar_t text[256] = {};
    GetWindowTextW(window, text, ARRAYSIZE(text));
    return text;
}

bool Picker::WaitUntil(const std::function<bool()>& condition) const
{
    const ULONGLONG end = GetTickCount64() + LimitMilliseconds;
    while (!condition())
    {
        if (GetTickCount64() >= end)
            return false;
        Sleep(PollMilliseconds);
    }
    return true;
}

bool Picker::WaitUntilShown()
{
    const bool shown = WaitUntil([this] {
        EnumThreadWindows(thread_, FindShown, reinterpret_cast<LPARAM>(&window_));
        return window_ && GetForegroundWindow() == window_ && IsChild(window_, Focus());
    });
    EXPECT_TRUE(shown) << "no picker comes";
    return shown;
}

bool Picker::IsShown() const
{
    return IsWindow(window_) && IsWindowVisible(window_);
}

bool Picker::WaitUntilGone()
{
    const bool gone = WaitUntil([this] { return !IsShown(); });
    EXPECT_TRUE(gone) << "the picker stays";
    return gone;
}

void Picker::CloseIfShown()
{
    if (IsShown())
        PostMessageW(window_, WM_CLOSE, 0, 0);
}

void Picker::CloseUntil(const std::atomic<bool>& over)
{
    constexpr ULONGLONG longest = 60000;
    const ULONGLONG end = GetTickCount64() + longest;
    while (!over && GetTickCount64() < end)
    {
        EnumThreadWindows(thread_, FindShown, reinterpret_cast<LPARAM>(&window_));
        CloseIfShown();
        Sleep(PollMilliseconds);
    }
}

HWND Picker::Surface() const
{
    return GetWindow(window_, GW_CHILD);
}

HWND Picker::List() const
{
    return FindWindowExW(Surface(), nullptr, L"ListBox", nullptr);
}

HWND Picker::Frame() const
{
    return FindWindowExW(Surface(), nullptr, L"Button", L"Sort List By");
}

HWND Picker::Option(int index) const
{
    return FindWindowExW(Frame(), nullptr, L"Button", index == 0 ? L"&Code" : L"&Description");
}

HWND Picker::Ok() const
{
    return FindWindowExW(Surface(), nullptr, L"Button", L"OK");
}

HWND Picker::CancelButton() const
{
    return FindWindowExW(Surface(), nullptr, L"Button", L"Cancel");
}

HWND Picker::Focus() const
{
    GUITHREADINFO information = {};
    information.cbSize = sizeof information;
    GetGUIThreadInfo(thread_, &information);
    return information.hwndFocus;
}

std::vector<std::wstring> Picker::Items() const
{
    std::vector<std::wstring> items;
    const auto count = static_cast<std::size_t>(SendMessageW(List(), LB_GETCOUNT, 0, 0));
    for (std::size_t i = 0; i < count; ++i)
    {
        // Not in Unicode, in which Wine hands a list of ANSI texts no more room than 512 characters.
        std::string text(static_cast<std::size_t>(SendMessageA(List(), LB_GETTEXTLEN, i, 0)) + 1, '\0');
        text.resize(static_cast<std::size_t>(
            SendMessageA(List(), LB_GETTEXT, i, reinterpret_cast<LPARAM>(text.data()))));
        std::wstring wide(text.size(), L'\0');
        const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                               wide.data(), static_cast<int>(wide.size()));
        wide.resize(static_cast<std::size_t>(length));
        items.push_back(std::move(wide));
    }
    return items;
}

std::vector<long> Picker::ItemData() const
{
    std::vector<long> data;
    const auto count = static_cast<std::size_t>(SendMessageW(List(), LB_GETCOUNT, 0, 0));
    for (std::size_t i = 0; i < count; ++i)
        data.push_back(static_cast<long>(SendMessageW(List(), LB_GETITEMDATA, i, 0)));
    return data;
}

int Picker::Selected() const
{
    return static_cast<int>(SendMessageW(List(), LB_GETCURSEL, 0, 0));
}

int Picker::Top() const
{
    return static_cast<int>(SendMessageW(List(), LB_GETTOPINDEX, 0, 0));
}

bool Picker::IsSelected(HWND option) const
{
    return SendMessageW(option, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

RECT Picker::Place(HWND part) const
{
    RECT place = {};
    GetWindowRect(part, &place);
    MapWindowPoints(nullptr, Surface(), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

SIZE Picker::InnerSize() const
{
    RECT inner = {};
    GetClientRect(window_, &inner);
    return {inner.right, inner.bottom};
}

void Picker::ResizeInside(SIZE size)
{
    RECT outer = {};
    GetWindowRect(window_, &outer);
    const SIZE inner = InnerSize();
    SetWindowPos(window_, nullptr, 0, 0, outer.right - outer.left - inner.cx + size.cx,
                 outer.bottom - outer.top - inner.cy + size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Picker::Settle()
{
    const InputMark mark(thread_);
    EXPECT_TRUE(WaitUntil([&] { return mark.Arrived(); })) << "the picker does not get the input";
    // Answered only between two messages.
    SendMessageW(window_, WM_NULL, 0, 0);
}

void Picker::Key(WORD key, std::initializer_list<WORD> held)
{
    TapKey(key, held);
    Settle();
}

// A window that has just come may still move the pointer about when it learns where it is.
void Picker::Point(POINT place)
{
    EXPECT_TRUE(WaitUntil([&] {
        PointAt(place);
        Settle();
        POINT now = {};
        GetCursorPos(&now);
        return now.x == place.x && now.y == place.y;
    }));
}

void Picker::Click(HWND part, POINT place)
{
    ClientToScreen(part, &place);
    Point(place);
    PressButton(MouseButton::Left);
    ReleaseButton(MouseButton::Left);
    Settle();
}

void Picker::Click(HWND part)
{
    RECT inside = {};
    GetClientRect(part, &inside);
    Click(part, {inside.right / 2, inside.bottom / 2});
}

POINT Picker::MiddleOfItem(int item) const
{
    RECT place = {};
    SendMessageW(List(), LB_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&place));
    return {30, (place.top + place.bottom) / 2};
}

void Picker::ClickItem(int item)
{
    Click(List(), MiddleOfItem(item));
}

void Picker::DoubleClickItem(int item)
{
    POINT place = MiddleOfItem(item);
    ClientToScreen(List(), &place);
    Point(place);
    for (int i = 0; i < 2; ++i)
    {
        PressButton(MouseButton::Left);
        ReleaseButton(MouseButton::Left);
    }
    Settle();
}

void Pick(const PumpingUntil& pumpUntil, const std::function<void()>& open,
          const std::function<void(Picker&)>& user)
{
    std::atomic<bool> done = false;
    std::atomic<bool> over = false;
    const Thread thread([&, picking = GetCurrentThreadId()] {
        Picker picker(picking);
        if (picker.WaitUntilShown())
            user(picker);
        picker.CloseIfShown();
        done = true;
        picker.CloseUntil(over);
    });
    open();
    constexpr DWORD limit = 60000;
    EXPECT_TRUE(pumpUntil([&] { return done.load(); }, limit));
    over = true;
}

} // namespace kiv::test
