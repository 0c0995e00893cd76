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
        return lParam == 0;
    default:
        return false;
    }
}

} // namespace kiv
