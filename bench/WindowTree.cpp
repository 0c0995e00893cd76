#include "bench/WindowTree.h"

#include "runtime/com/Errors.h"

namespace kiv::bench
{

namespace
{

const char* PlainClass()
{
    static const ATOM registered = [] {
        WNDCLASSA description = {};
        description.lpfnWndProc = DefWindowProcA;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = "KivBench.PlainWindow";
        return RegisterClassA(&description);
    }();
    return reinterpret_cast<const char*>(static_cast<UINT_PTR>(registered));
}

std::string ClassOf(HWND window)
{
    char name[64] = {};
    GetClassNameA(window, name, ARRAYSIZE(name));
    return name;
}

} // namespace

WindowTree::WindowTree(HWND window) : WindowTree(window, GetAncestor(window, GA_PARENT)) {}

WindowTree::WindowTree(HWND window, HWND around) :
    class_(ClassOf(window)),
    style_(static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE))),
    extendedStyle_(static_cast<DWORD>(GetWindowLongA(window, GWL_EXSTYLE)))
{
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, around, reinterpret_cast<POINT*>(&place), 2);
    place_ = {place.left, place.top};
    size_ = {place.right - place.left, place.bottom - place.top};
    // The last one is the one that was made first.
    const HWND first = GetWindow(window, GW_CHILD);
    for (HWND child = first ? GetWindow(first, GW_HWNDLAST) : nullptr; child;
         child = GetWindow(child, GW_HWNDPREV))
        children_.push_back(WindowTree(child, window));
}

HWND WindowTree::Create(HWND parent) const
{
    return Create(parent, place_);
}

HWND WindowTree::Create(HWND parent, POINT place) const
{
    return CreateWith(PlainClass(), parent, place);
}

HWND WindowTree::CreateWith(const char* windowClass, HWND parent, POINT place) const
{
    const HWND window = CreateWindowExA(extendedStyle_, windowClass, "", style_, place.x, place.y, size_.cx,
                                        size_.cy, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
    if (!window)
        ThrowLastError();
    for (const WindowTree& child : children_)
        child.CreateWith(child.class_.c_str(), window, child.place_);
    return window;
}

} // namespace kiv::bench
