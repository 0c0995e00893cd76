#include "runtime/constituents/ScrollBar.h"

#include <algorithm>
#include <utility>

namespace kiv
{

namespace
{

constexpr int Size = 16; // pixels

} // namespace

ScrollBar::ScrollBar(ConstituentOwner& owner, HWND parent) :
    Constituent(owner, parent, "SCROLLBAR", WS_VISIBLE | WS_TABSTOP | SBS_HORZ, 0, {-Size, 0, 0, Size})
{
}

void ScrollBar::Value(short newValue)
{
    if (newValue == value_)
        return;
    value_ = newValue;
    told_ = false;
    // Telling it takes longer than all the rest.
    if (GetFocus() == hWnd())
        Tell();
    AnnounceForSystem(EVENT_OBJECT_VALUECHANGE, hWnd());
    if (OnChange)
        OnChange();
}

void ScrollBar::Range(short min, short max)
{
    if (min == min_ && max == max_)
        return;
    min_ = min;
    max_ = max;
    told_ = false;
}

// The system's bar is told as well, for whoever asks it, and announces the value to assistive tools: at once
// while the user is there, else when the next message comes, whichever it is.
bool ScrollBar::Received(UINT, WPARAM, LPARAM)
{
    Tell();
    return false;
}

void ScrollBar::Tell()
{
    if (std::exchange(told_, true))
        return;
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_POS;
    info.nMin = min_;
    info.nMax = max_;
    info.nPos = value_;
    Ask(SBM_SETSCROLLINFO, FALSE, reinterpret_cast<LPARAM>(&info));
}

void ScrollBar::Notified(WORD code)
{
    int target = value_;
    switch (code)
    {
    case SB_LINELEFT:
        target -= 1;
        break;
    case SB_LINERIGHT:
        target += 1;
        break;
    case SB_PAGELEFT:
        target -= largeChange_;
        break;
    case SB_PAGERIGHT:
        target += largeChange_;
        break;
    case SB_LEFT:
        target = min_;
        break;
    case SB_RIGHT:
        target = max_;
        break;
    default:
        return;
    }
    Value(static_cast<short>(std::clamp<int>(target, min_, std::max(min_, max_))));
}

void ScrollBar::Draw(HDC, const RECT&) const {}

} // namespace kiv
