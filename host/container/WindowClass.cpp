#include "host/container/WindowClass.h"

#include "runtime/com/Errors.h"

namespace kiv::host
{

void RegisterWindowClass(const wchar_t* name, WNDPROC procedure, HBRUSH background)
{
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = name;
    if (!RegisterClassExW(&windowClass) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
        ThrowLastError();
}

} // namespace kiv::host
