#include "runtime/constituents/ParkingWindow.h"

#include "runtime/com/Errors.h"
#include "runtime/com/PerThread.h"
#include "runtime/drawing/DpiContext.h"

#include <algorithm>
#include <vector>

namespace kiv
{

namespace
{

struct Lot
{
    DpiContext Context;
    HWND Window;
};

struct Parking
{
    std::vector<Lot> Lots;

    Parking() = default;
    Parking(const Parking&) = delete;
    Parking& operator=(const Parking&) = delete;
    ~Parking()
    {
        for (const Lot& lot : Lots)
            DestroyWindow(lot.Window);
    }
};

// A system class, so that no code of this module is called should the window outlive it. In a process whose
// windows are mirrored from the first it would be one of them, and is not to hand that on.
HWND MakeLot()
{
    const HWND window =
        CreateWindowExA(WS_EX_TOOLWINDOW | WS_EX_NOINHERITLAYOUT, "STATIC", "KivControls parking", WS_POPUP,
                        0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    if (!window)
        ThrowLastError();
    return window;
}

} // namespace

HWND ParkingWindow()
{
    auto& lots = PerThread<Parking>().Lots;
    const DpiContext context = DpiContext::OfThread();
    const auto found = std::ranges::find(lots, context, &Lot::Context);
    if (found != lots.end())
        return found->Window;
    lots.reserve(lots.size() + 1);
    lots.push_back({context, MakeLot()});
    return lots.back().Window;
}

HWND ParkingWindowFor(HWND window)
{
    const DpiContext::Entered entered(DpiContext::Of(window));
    return ParkingWindow();
}

bool IsParked(HWND window)
{
    const HWND parent = GetAncestor(window, GA_PARENT);
    const auto& lots = PerThread<Parking>().Lots;
    return std::ranges::find(lots, parent, &Lot::Window) != lots.end();
}

} // namespace kiv
