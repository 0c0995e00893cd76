#include "runtime/constituents/StrayMessage.h"

namespace kiv
{

bool IsStray(UINT message, LPARAM lParam)
{
    switch (message)
    {
    case WM_NCCREATE:
    case WM_CREATE:
        return true;
    case WM_NCCALCSIZE:
    case WM_GETMINMAXINFO:
    case WM_WINDOWPOSCHANGING:
    case WM_WINDOWPOSCHANGED:
    case WM_STYLECHANGING:
    case WM_STYLECHANGED:
    case WM_SIZING:
    case WM_MOVING:
    case WM_MEASUREITEM:
    case WM_DRAWITEM:
    case WM_DELETEITEM:
    case WM_COMPAREITEM:
    case WM_NOTIFY:
    case WM_HELP:
    case WM_COPYDATA:
    case WM_NEXTMENU:
    // Wine's lists take whatever lies in the heap for a text that is not there.
    case CB_ADDSTRING:
    case CB_INSERTSTRING:
    case LB_ADDSTRING:
    case LB_INSERTSTRING:
        return lParam == 0;
    default:
        return false;
    }
}

} // namespace kiv
