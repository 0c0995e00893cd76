#include "bench/FormBench.h"

#include "bench/BareSite.h"
#include "bench/Bench.h"
#include "bench/Controls.h"
#include "bench/WindowTree.h"
#include "runtime/com/Errors.h"

#include <chrono>
#include <memory>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace kiv::bench
{

namespace
{

constexpr int Few = 500;
constexpr int Many = 2000;
constexpr int Columns = 20;
constexpr SIZE Cell = {60, 26};

RECT PlaceOf(int index)
{
    const LONG left = index % Columns * Cell.cx;
    const LONG top = index / Columns % Columns * Cell.cy;
    return {left, top, left + Cell.cx, top + Cell.cy};
}

HWND CreateForm()
{
    const HWND form = CreateWindowA("STATIC", "", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 1220, 560,
                                    nullptr, nullptr, nullptr, nullptr);
    if (!form)
        ThrowLastError();
    return form;
}

void Show(HWND form)
{
    ShowWindow(form, SW_SHOWNA);
    RedrawWindow(form, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

double TimeOf(const std::function<void()>& job)
{
    const auto start = std::chrono::steady_clock::now();
    job();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

struct Class
{
    ComPtr<IClassFactory> Factory;
    WindowTree Windows;
};

void OpenControls(const std::vector<Class>& classes, int count)
{
    const HWND form = CreateForm();
    std::vector<std::unique_ptr<HostedControl>> controls;
    for (int index = 0; index < count; ++index)
    {
        const Class& one = classes[static_cast<std::size_t>(index) % classes.size()];
        controls.push_back(std::make_unique<HostedControl>(one.Factory.Get(), form, PlaceOf(index)));
    }
    Show(form);
    controls.clear();
    DestroyWindow(form);
}

void OpenWindows(const std::vector<Class>& classes, int count)
{
    const HWND form = CreateForm();
    for (int index = 0; index < count; ++index)
    {
        const RECT place = PlaceOf(index);
        classes[static_cast<std::size_t>(index) % classes.size()].Windows.Create(form,
                                                                                 {place.left, place.top});
    }
    Show(form);
    DestroyWindow(form);
}

} // namespace

void RunFormRows(HWND parent)
{
    std::vector<Class> classes;
    for (const ControlOfLibrary& control : Controls())
    {
        ComPtr<IClassFactory> factory = FactoryOf(control.ClassId);
        const HostedControl hosted(factory.Get(), parent, PlaceOf(0));
        classes.push_back({factory, WindowTree(hosted.Window())});
    }
    OpenControls(classes, Few);
    OpenWindows(classes, Few);
    const double controls = TimeOf([&] { OpenControls(classes, Few); });
    const double windows = TimeOf([&] { OpenWindows(classes, Few); });
    Print({"Form: 500 controls, against their windows", controls, windows, 2.0});
    const double manyControls = TimeOf([&] { OpenControls(classes, Many); });
    // Four times as many, with a little for what grows by its nature in no other way.
    Print({"Form: 2,000 controls, against four times 500", manyControls, controls * (Many / Few), 1.2});
}

} // namespace kiv::bench
