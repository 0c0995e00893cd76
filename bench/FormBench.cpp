#include "bench/FormBench.h"

#include "bench/BareSite.h"
#include "bench/Bench.h"
#include "bench/Controls.h"
#include "bench/WindowTree.h"
#include "host/folio/FormPage.h"
#include "runtime/com/Errors.h"

#include <chrono>
#include <filesystem>
#include <fstream>
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

// A form file with as many controls, for as long as it is needed.
class FormFile
{
public:
    explicit FormFile(int count) : path_(std::filesystem::temp_directory_path() / "kiv-bench.form")
    {
        std::ofstream file(path_);
        file << "Begin Form bench\n    Caption = \"bench\"\n    ClientWidth = 18000\n    ClientHeight = "
                "7800\n";
        constexpr int TwipsPerPixel = 15;
        const std::span<const ControlOfLibrary> controls = Controls();
        for (int index = 0; index < count; ++index)
        {
            const RECT place = PlaceOf(index);
            const auto& control = controls[static_cast<std::size_t>(index) % controls.size()];
            file << "    Begin KivControls." << control.Name << " c" << index
                 << "\n        Left = " << place.left * TwipsPerPixel
                 << "\n        Top = " << place.top * TwipsPerPixel
                 << "\n        Width = " << Cell.cx * TwipsPerPixel
                 << "\n        Height = " << Cell.cy * TwipsPerPixel << "\n    End\n";
        }
        file << "End\n";
    }
    FormFile(const FormFile&) = delete;
    FormFile& operator=(const FormFile&) = delete;
    ~FormFile() { std::filesystem::remove(path_); }

    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

void OpenFile(const FormFile& file)
{
    host::FormPage page(file.Path(), {.ToBeSaved = false});
    Show(page.Window().Window());
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
    const FormFile file(Few);
    OpenFile(file);
    const double opened = TimeOf([&] { OpenFile(file); });
    Print({"Form: a file of 500 controls in FolioHost, against their windows", opened, windows, {}});
    // Four times as many, with a little for what grows by its nature in no other way.
    Print({"Form: 2,000 controls, against four times 500", manyControls, controls * (Many / Few), 1.2});
}

} // namespace kiv::bench
