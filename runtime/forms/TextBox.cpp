#include "runtime/forms/TextBox.h"

#include "runtime/forms/Color.h"
#include "runtime/forms/Graphics.h"

#include <algorithm>
#include <limits>

namespace kiv
{

namespace
{

// The sunken border on both sides, and a pixel of air above and below the line.
constexpr int VerticalFrame = 2 * (2 + 1);

void Call(const std::function<void()>& handler)
{
    if (handler)
        handler();
}

std::wstring Wide(std::string_view ansi)
{
    const int length = static_cast<int>(ansi.size());
    std::wstring text(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, text.data(), static_cast<int>(text.size()));
    return text;
}

} // namespace

TextBox::TextBox(ConstituentOwner& owner, HWND parent) :
    Constituent(owner, parent, "EDIT", WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE),
    backColor_(SystemColor(COLOR_WINDOW)),
    foreColor_(SystemColor(COLOR_WINDOWTEXT))
{
}

std::wstring TextBox::Text() const
{
    std::string ansi(static_cast<std::size_t>(Length()) + 1, '\0');
    const int length = GetWindowTextA(hWnd(), ansi.data(), static_cast<int>(ansi.size()));
    return Wide(std::string_view(ansi).substr(0, static_cast<std::size_t>(length)));
}

void TextBox::Text(std::wstring_view text)
{
    if (text != Text())
        SetWindowTextA(hWnd(), Ansi(text).c_str());
}

int TextBox::SelStart() const
{
    DWORD start = 0;
    SendMessageA(hWnd(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    return static_cast<int>(start);
}

int TextBox::SelLength() const
{
    DWORD start = 0;
    DWORD end = 0;
    SendMessageA(hWnd(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return static_cast<int>(end - start);
}

void TextBox::Select(int start, int length)
{
    SendMessageA(hWnd(), EM_SETSEL, static_cast<WPARAM>(start), start + length);
}

std::wstring TextBox::SelText() const
{
    return Text().substr(static_cast<std::size_t>(SelStart()), static_cast<std::size_t>(SelLength()));
}

int TextBox::Length() const
{
    return GetWindowTextLengthA(hWnd());
}

void TextBox::MaxLength(short characters)
{
    maxLength_ = std::max<short>(characters, 0);
    // To the box itself 0 means a large limit of its own.
    SendMessageA(hWnd(), EM_SETLIMITTEXT, static_cast<WPARAM>(maxLength_), 0);
}

void TextBox::BackColor(OLE_COLOR color)
{
    backColor_ = color;
    InvalidateRect(hWnd(), nullptr, TRUE);
}

void TextBox::ForeColor(OLE_COLOR color)
{
    foreColor_ = color;
    InvalidateRect(hWnd(), nullptr, TRUE);
}

void TextBox::Move(int left, int top, int width, int height)
{
    SetWindowPos(hWnd(), nullptr, left, top, width, std::max(height, LineHeight() + VerticalFrame),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE TextBox::Size() const
{
    RECT outer = {};
    GetWindowRect(hWnd(), &outer);
    return {outer.right - outer.left, outer.bottom - outer.top};
}

int TextBox::LineHeight() const
{
    const auto font = reinterpret_cast<HFONT>(SendMessageA(hWnd(), WM_GETFONT, 0, 0));
    const MemoryDc dc(nullptr);
    const Selection selected(dc.Get(), font);
    TEXTMETRICA metrics = {};
    GetTextMetricsA(dc.Get(), &metrics);
    return metrics.tmHeight;
}

void TextBox::Notified(WORD code)
{
    if (code == EN_CHANGE)
        Call(OnChange);
}

HBRUSH TextBox::Colors(HDC dc)
{
    SetTextColor(dc, ResolvedColor(foreColor_));
    SetBkColor(dc, ResolvedColor(backColor_));
    // Made anew each time: what a system colour stands for may have changed.
    background_ = GdiObject<HBRUSH>(CreateSolidBrush(ResolvedColor(backColor_)));
    return background_.Get();
}

bool TextBox::Received(UINT message, WPARAM, LPARAM)
{
    if (message == WM_SETFOCUS)
        Call(OnGotFocus);
    else if (message == WM_LBUTTONUP)
        Call(OnClick);
    return false;
}

} // namespace kiv
