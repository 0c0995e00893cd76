#include "bench/EnumListBench.h"

#include "bench/BareSite.h"
#include "bench/Bench.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/LateBound.h"
#include "runtime/com/MakeCom.h"

#include <KivControls.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace kiv::bench
{

namespace
{

constexpr int Runs = 7;
constexpr int ManyRuns = 3;
constexpr RECT Place = {10, 10, 140, 32};

// Database, record set and field in one: a host's data object that costs as little as late binding can.
class Codes final : public ComObject<IDispatch>
{
public:
    int RowCount = 10000;
    std::function<void()> OnOpen;
    std::function<void()> OnClose;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                            DISPID* ids) noexcept override
    {
        const auto* const found =
            std::ranges::find_if(Names, [&](const wchar_t* name) { return _wcsicmp(name, names[0]) == 0; });
        if (found == std::end(Names))
            return DISP_E_UNKNOWNNAME;
        *ids = static_cast<DISPID>(found - std::begin(Names));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO*, UINT*) noexcept override
    {
        switch (member)
        {
        case 0: // Value
            Variant(isCode_ ? std::to_wstring(row_) : L"Description of code " + std::to_wstring(row_))
                .DetachTo(result);
            return S_OK;
        case 1: // EOF
            Variant(row_ >= RowCount).DetachTo(result);
            return S_OK;
        case 2: // MoveNext
            ++row_;
            return S_OK;
        case 3: // Fields
            isCode_ = V_BSTR(&arguments->rgvarg[0])[5] == L'C';
            Variant(static_cast<IDispatch*>(this)).DetachTo(result);
            return S_OK;
        case 4: // OpenRecordset
            row_ = 0;
            OnOpen();
            Variant(static_cast<IDispatch*>(this)).DetachTo(result);
            return S_OK;
        default: // Close
            OnClose();
            return S_OK;
        }
    }

private:
    static constexpr const wchar_t* Names[] = {L"Value",  L"EOF",           L"MoveNext",
                                               L"Fields", L"OpenRecordset", L"Close"};
    int row_ = 0;
    bool isCode_ = false;
};

double Now()
{
    LARGE_INTEGER count = {};
    LARGE_INTEGER frequency = {};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
}

// The rows, fetched as the library does it.
void Fetch(Codes& codes, const std::function<void(const Variant& description, const Variant& code)>& take)
{
    const ComPtr<IDispatch> rows =
        ObjectOf(CallMember(&codes, MemberOf(&codes, L"OpenRecordset"), {Variant(L""), Variant(8L)}));
    const DISPID eof = MemberOf(rows.Get(), L"EOF");
    const DISPID moveNext = MemberOf(rows.Get(), L"MoveNext");
    const DISPID fields = MemberOf(rows.Get(), L"Fields");
    const auto text = [&](const wchar_t* column) {
        const ComPtr<IDispatch> field = ObjectOf(CallMember(rows.Get(), fields, {Variant(column)}));
        return CallMember(field.Get(), MemberOf(field.Get(), L"Value"));
    };
    while (!CallMember(rows.Get(), eof).Bool())
    {
        const Variant description = text(L"Enum Text");
        const Variant code = text(L"Enum Code");
        take(description, code);
        CallMember(rows.Get(), moveNext);
    }
    CallMember(rows.Get(), MemberOf(rows.Get(), L"Close"));
}

// The same rows added to a list box that is not painted.
void FillBare(Codes& codes, HWND parent)
{
    const HWND list = CreateWindowExA(WS_EX_CLIENTEDGE, "LISTBOX", "",
                                      WS_CHILD | WS_VSCROLL | LBS_NOTIFY | LBS_HASSTRINGS | LBS_USETABSTOPS |
                                          LBS_NOINTEGRALHEIGHT,
                                      0, 0, 200, 200, parent, nullptr, nullptr, nullptr);
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    Fetch(codes, [list](const Variant& description, const Variant& code) {
        const std::wstring item =
            std::wstring(V_BSTR(&code.Get())).append(L"\t").append(V_BSTR(&description.Get()));
        char ansi[256] = {};
        WideCharToMultiByte(CP_ACP, 0, item.c_str(), -1, ansi, ARRAYSIZE(ansi), nullptr, nullptr);
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ansi));
    });
    DestroyWindow(list);
}

double shown = 0; // when the picker was first seen

// Leaves the picker as soon as it is shown and has nothing else to do.
void CALLBACK LeavePicker(HWND, UINT, UINT_PTR, DWORD)
{
    const HWND picker = FindWindowA("KivControls.Form", nullptr);
    if (!picker || !IsWindowVisible(picker))
        return;
    if (shown == 0)
        shown = Now();
    PostMessageA(picker, WM_CLOSE, 0, 0);
}

void OpenPicker(const HostedControl& control)
{
    shown = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, LeavePicker);
    SendMessageA(FindWindowExA(control.Window(), nullptr, "BUTTON", nullptr), BM_CLICK, 0, 0);
    KillTimer(nullptr, timer);
}

// From the opening of the record set to its closing. Library and bare take turns, so that both meet the same
// machine.
void RunFillRow(const HostedControl& control, Codes& codes, HWND parent)
{
    double opened = 0;
    std::vector<double> library;
    std::vector<double> bare;
    std::vector<double>* times = &library;
    codes.OnOpen = [&] { opened = Now(); };
    codes.OnClose = [&] { times->push_back(Now() - opened); };
    for (int run = 0; run < Runs; ++run)
    {
        times = &library;
        OpenPicker(control);
        times = &bare;
        FillBare(codes, parent);
    }
    Print({"EnumList: fill the picker with 10,000 rows", Middle(library), Middle(bare), 1.05});
}

// From the click to the picker at rest.
void RunOpenRow(const HostedControl& control, Codes& codes)
{
    codes.RowCount = 100000;
    codes.OnOpen = codes.OnClose = [] {};
    std::vector<double> library;
    std::vector<double> bare;
    for (int run = 0; run < ManyRuns; ++run)
    {
        double start = Now();
        OpenPicker(control);
        library.push_back(shown - start);
        start = Now();
        Fetch(codes, [](const Variant&, const Variant&) {});
        bare.push_back(Now() - start);
    }
    Print({"EnumList: open with 100,000 rows, against fetching", Middle(library), Middle(bare), 2.0});
}

} // namespace

void RunEnumListRows(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    ComPtr<_EnumList> list;
    Check(control.Object()->QueryInterface(IID_PPV_ARGS(&list)));
    const auto codes = MakeCom<Codes>();
    Check(list->putref_Database(codes.Get()));
    RunFillRow(control, *codes.Get(), parent);
    RunOpenRow(control, *codes.Get());
    codes->OnClose = [] {};
    Check(list->putref_Database(nullptr));
}

} // namespace kiv::bench
