#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kiv::bench
{

// A window and those in it, described so that others like them can be made: what a control needs at least.
class WindowTree
{
public:
    // Of a window that is there, a control's.
    explicit WindowTree(HWND window);

    // Windows like it, the outer one of a class without any behaviour. Throws ComError.
    HWND Create(HWND parent) const;
    HWND Create(HWND parent, POINT place) const;

private:
    WindowTree(HWND window, HWND around);
    HWND CreateWith(const char* windowClass, HWND parent, POINT place) const;

    std::string class_;
    DWORD style_;
    DWORD extendedStyle_;
    POINT place_ = {};
    SIZE size_ = {};
    std::vector<WindowTree> children_;
};

} // namespace kiv::bench
