#include "runtime/constituents/ScrollBar.h"

#include <algorithm>

namespace kiv
{

ScrollBar::ScrollBar(ConstituentOwner& owner, HWND parent) :
    Constituent(owner, parent, "SCROLLBAR", WS_VISIBLE | WS_TABSTOP | SBS_HORZ, 0)
{
    constexpr int Size = 16;
    MoveWindow(hWnd(), -Size, 0, Size, Size, FALSE);
}

void ScrollBar::Value(short newValue)
{
    if (newValue == value_)
        return;
    value_ = newValue;
    told_ = false;
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

// The system's bar is told as well, for whoever asks it: when the next message comes, whichever it is.
bool ScrollBar::Received(UINT, WPARAM, LPARAM)
{
    if (!told_)
    {
        told_ = true;
        SCROLLINFO info = {};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_POS;
        info.nMin = min_;
        info.nMax = max_;
        info.nPos = value_;
        Ask(SBM_SETSCROLLINFO, FALSE, reinterpret_cast<LPARAM>(&info));
    }
    return false;
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
