#include "tests/support/HostWindow.h"

#include "runtime/com/Errors.h"

#include <utility>

namespace kiv::test
{

namespace
{

const wchar_t* ClassName()
{
    static const ATOM registered = [] {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        windowClass.lpszClassName = L"KivTests.HostWindow";
        return RegisterClassW(&windowClass);
    }();
    return reinterpret_cast<const wchar_t*>(static_cast<ULONG_PTR>(registered));
}

} // namespace

HostWindow::HostWindow() :
    window_(CreateWindowExW(0, ClassName(), L"Host", WS_POPUP | WS_CLIPCHILDREN | WS_VISIBLE, 40, 40, 320,
                            200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr))
{
    if (!window_)
        ThrowLastError();
}

HostWindow::~HostWindow()
{
    Destroy();
}

void HostWindow::Destroy()
{
    if (window_)
        DestroyWindow(std::exchange(window_, nullptr));
}

} // namespace kiv::test
