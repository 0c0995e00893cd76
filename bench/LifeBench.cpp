#include "bench/LifeBench.h"

#include "bench/BareSite.h"
#include "bench/Bench.h"
#include "bench/Controls.h"
#include "bench/WindowTree.h"
#include "runtime/com/Errors.h"

namespace kiv::bench
{

namespace
{

constexpr RECT Place = {10, 10, 130, 34};

void RunLifeRow(const char* name, IClassFactory* factory, HWND parent)
{
    const WindowTree windows = [&] { return WindowTree(HostedControl(factory, parent, Place).Window()); }();
    const Pair times = MeasurePair(
        50, [&] { const HostedControl control(factory, parent, Place); },
        [&] { DestroyWindow(windows.Create(parent)); });
    Print({std::string(name) + ": create, activate and destroy", times.Library, times.Bare, 1.5});
}

} // namespace

void RunLifeRows(HWND parent)
{
    for (const ControlOfLibrary& control : Controls())
        RunLifeRow(control.Name, FactoryOf(control.ClassId).Get(), parent);
}

} // namespace kiv::bench
