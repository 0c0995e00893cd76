#include "bench/ChkComboBench.h"

#include "bench/BareSite.h"
#include "bench/Bench.h"
#include "runtime/com/Bstr.h"
#include "runtime/com/Errors.h"

#include <KivControls.h>

#include <string>

using Microsoft::WRL::ComPtr;

namespace kiv::bench
{

namespace
{

constexpr RECT Place = {10, 10, 160, 34};
constexpr int Items = 10000;
constexpr char ItemText[] = "Form 1040";

ComPtr<_ChkCombo> ComboIn(const HostedControl& control)
{
    ComPtr<_ChkCombo> combo;
    Check(control.Object()->QueryInterface(IID_PPV_ARGS(&combo)));
    return combo;
}

HWND CreateBareCombo(HWND parent)
{
    const HWND bare = CreateWindowExA(0, "COMBOBOX", "",
                                      WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWNLIST |
                                          CBS_OWNERDRAWFIXED | CBS_HASSTRINGS,
                                      10, 50, 150, 24, parent, nullptr, nullptr, nullptr);
    if (!bare)
        ThrowLastError();
    return bare;
}

void RunAddRow(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    const ComPtr<_ChkCombo> combo = ComboIn(control);
    const HWND bare = CreateBareCombo(parent);
    const Bstr text(L"Form 1040");
    const auto add = [&] {
        Check(combo->Clear());
        for (int i = 0; i < Items; ++i)
            Check(combo->AddItem(text.Get(), -1));
    };
    const auto addBare = [&] {
        SendMessageA(bare, CB_RESETCONTENT, 0, 0);
        for (int i = 0; i < Items; ++i)
            SendMessageA(bare, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ItemText));
    };
    const Pair times = MeasurePair(1, add, addBare);
    DestroyWindow(bare);
    Print({"ChkCombo: 10,000 items added", times.Library, times.Bare, 1.1});
}

// The calls that an item with an icon needs, with its text and its state at hand.
void PaintBare(HDC dc, RECT place, HICON icon, HWND combo)
{
    HBRUSH brush = CreateSolidBrush(GetSysColor(COLOR_WINDOW));
    FillRect(dc, &place, brush);
    DeleteObject(brush);
    std::string text(static_cast<std::size_t>(SendMessageA(combo, CB_GETLBTEXTLEN, 0, 0)), ' ');
    SendMessageA(combo, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(text.data()));
    SetBkColor(dc, GetSysColor(COLOR_WINDOW));
    brush = CreateSolidBrush(GetSysColor(COLOR_WINDOW));
    FillRect(dc, &place, brush);
    DeleteObject(brush);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    DrawIconEx(dc, place.left, (place.top + place.bottom - 14) / 2, icon, 0, 0, 0, nullptr, DI_NORMAL);
    place.left += 14;
    DrawTextA(dc, text.c_str(), -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

void RunPaintRow(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    const ComPtr<_ChkCombo> combo = ComboIn(control);
    Check(combo->AddItem(Bstr(L"Form 1040").Get(), -1));
    Check(combo->put_ListCompletionStatus(0, Complete));
    LONG handle = 0;
    Check(combo->get_hwnd(&handle));
    const auto window = static_cast<HWND>(LongToHandle(handle));
    const HWND bare = CreateBareCombo(parent);
    SendMessageA(bare, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ItemText));
    const auto icon = static_cast<HICON>(
        LoadImageA(GetModuleHandleA("KivCtls.ocx"), "CHKCMB_CHK", IMAGE_ICON, 32, 32, LR_DEFAULTCOLOR));
    if (!icon)
        ThrowLastError();

    const HDC dc = GetDC(parent);
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_COMBOBOX;
    item.itemAction = ODA_DRAWENTIRE;
    item.hwndItem = window;
    item.hDC = dc;
    item.rcItem = {200, 10, 350, 30};
    const Pair times = MeasurePair(
        1000, [&] { SendMessageA(GetParent(window), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item)); },
        [&] { PaintBare(dc, item.rcItem, icon, bare); });
    ReleaseDC(parent, dc);
    DestroyIcon(icon);
    DestroyWindow(bare);
    Print({"ChkCombo: one item painted", times.Library, times.Bare, 1.0});
}

} // namespace

void RunChkComboRows(IClassFactory* factory, HWND parent)
{
    RunAddRow(factory, parent);
    RunPaintRow(factory, parent);
}

} // namespace kiv::bench
