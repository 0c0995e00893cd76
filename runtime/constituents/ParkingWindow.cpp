#include "runtime/constituents/ParkingWindow.h"

#include "runtime/com/Errors.h"
#include "runtime/com/PerThread.h"

namespace kiv
{

namespace
{

struct Parking
{
    HWND Window = nullptr;

    // A system class, so that no code of this module is called should the window outlive it.
    Parking() :
        Window(CreateWindowExA(WS_EX_TOOLWINDOW, "STATIC", "KivControls parking", WS_POPUP, 0, 0, 0, 0,
                               nullptr, nullptr, nullptr, nullptr))
    {
        if (!Window)
            ThrowLastError();
    }
    Parking(const Parking&) = delete;
    Parking& operator=(const Parking&) = delete;
    ~Parking() { DestroyWindow(Window); }
};

} // namespace

HWND ParkingWindow()
{
    return PerThread<Parking>().Window;
}

bool IsParked(HWND window)
{
    return GetAncestor(window, GA_PARENT) == ParkingWindow();
}

} // namespace kiv
