#include "runtime/drawing/WindowResolution.h"

#include "runtime/drawing/SystemFunction.h"

namespace kiv
{

namespace
{

using GetDpiForSystem = UINT WINAPI();
using GetDpiForWindow = UINT WINAPI(HWND);
using GetSystemMetricsForDpi = int WINAPI(int, UINT);

Resolution ResolutionOfScreen()
{
    const HDC screen = GetDC(nullptr);
    if (!screen)
        return {};
    const Resolution resolution = {GetDeviceCaps(screen, LOGPIXELSX), GetDeviceCaps(screen, LOGPIXELSY)};
    ReleaseDC(nullptr, screen);
    return resolution;
}

Resolution Square(UINT pixelsPerInch)
{
    const int perInch = static_cast<int>(pixelsPerInch);
    return {perInch, perInch};
}

} // namespace

Resolution ScreenResolution()
{
    static auto* const ask = SystemFunction<GetDpiForSystem>("GetDpiForSystem");
    if (ask)
        return Square(ask());
    // It stays the same for as long as a process runs.
    static const Resolution resolution = ResolutionOfScreen();
    return resolution;
}

Resolution ResolutionOf(HWND window)
{
    static auto* const ask = SystemFunction<GetDpiForWindow>("GetDpiForWindow");
    const UINT pixelsPerInch = ask ? ask(window) : 0;
    return pixelsPerInch != 0 ? Square(pixelsPerInch) : ScreenResolution();
}

int SystemMetric(int index, const Resolution& resolution)
{
    static auto* const ask = SystemFunction<GetSystemMetricsForDpi>("GetSystemMetricsForDpi");
    return ask ? ask(index, static_cast<UINT>(resolution.X)) : GetSystemMetrics(index);
}

} // namespace kiv
