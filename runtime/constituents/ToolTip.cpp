#include "runtime/constituents/ToolTip.h"

#include <windowsx.h>

#include <commctrl.h>

#include <utility>

namespace kiv
{

namespace
{

// As long as the system lets one be read.
constexpr int ShownFor = 32767; // milliseconds

bool IsAt(const MSG& message, const RECT& place)
{
    return PtInRect(&place, {GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)}) != FALSE;
}

// A WM_MOUSEHOVER comes once the pointer has rested; every move puts it off.
void AwaitRest(HWND window)
{
    TRACKMOUSEEVENT wanted = {sizeof wanted, TME_HOVER, window, HOVER_DEFAULT};
    TrackMouseEvent(&wanted);
}

void RegisterTips()
{
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES};
    InitCommonControlsEx(&classes);
}

} // namespace

bool ToolTip::IsOpen() const
{
    return window_ && IsWindow(window_);
}

void ToolTip::Relay(const MSG& message, const RECT& place, std::wstring_view text)
{
    if (IsOpen())
    {
        Change(place, text);
        MSG relayed = message;
        SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
    }
    else if (IsAt(message, place))
    {
        if (message.message == WM_MOUSEMOVE)
            AwaitRest(message.hwnd);
        else if (message.message == WM_MOUSEHOVER)
            Open(message, place, text);
    }
}

void ToolTip::Open(const MSG& message, const RECT& place, std::wstring_view text)
{
    RegisterTips();
    window_ =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, message.hwnd, nullptr, nullptr, nullptr);
    if (!window_)
        return;
    surface_ = message.hwnd;
    place_ = place;
    text_ = text;
    Tell(TTM_ADDTOOLW);
    // With a width, lines break: where the text has them break, or at the screen's edge.
    SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN));
    SendMessageW(window_, TTM_SETDELAYTIME, TTDT_AUTOPOP, ShownFor);
    // The pointer has rested already: this once the tip does not wait for it to do so.
    SendMessageW(window_, TTM_SETDELAYTIME, TTDT_INITIAL, 0);
    MSG arrival = message;
    arrival.message = WM_MOUSEMOVE;
    SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&arrival));
    SendMessageW(window_, TTM_SETDELAYTIME, TTDT_INITIAL, static_cast<LPARAM>(GetDoubleClickTime()));
}

void ToolTip::Change(const RECT& place, std::wstring_view text)
{
    if (!EqualRect(&place, &place_))
    {
        place_ = place;
        Tell(TTM_NEWTOOLRECTW);
    }
    if (text != text_)
    {
        text_ = text;
        Tell(TTM_UPDATETIPTEXTW);
    }
}

void ToolTip::Close()
{
    if (const HWND window = std::exchange(window_, nullptr); window && IsWindow(window))
        DestroyWindow(window);
}

void ToolTip::Tell(UINT message)
{
    TTTOOLINFOW tool = {};
    // The size that every version of the system's controls knows.
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = surface_;
    tool.rect = place_;
    tool.lpszText = text_.data();
    SendMessageW(window_, message, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace kiv
