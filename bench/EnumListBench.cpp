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

constexpr int RowCount = 10000;
constexpr int Runs = 5;
constexpr RECT Place = {10, 10, 140, 32};
constexpr double FillGoal = 1.3;

// Database, record set and field in one: a host's data object that costs as little as late binding can.
class Codes final : public ComObject<IDispatch>
{
public:
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

double Middle(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

// The same rows, fetched in the same way and added to a list box that is not painted.
void FillBare(Codes& codes, HWND list)
{
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
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
        const std::wstring item =
            std::wstring(V_BSTR(&code.Get())).append(L"\t").append(V_BSTR(&description.Get()));
        char ansi[256] = {};
        WideCharToMultiByte(CP_ACP, 0, item.c_str(), -1, ansi, ARRAYSIZE(ansi), nullptr, nullptr);
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ansi));
        CallMember(rows.Get(), moveNext);
    }
    CallMember(rows.Get(), MemberOf(rows.Get(), L"Close"));
}

// Leaves the picker as soon as it is shown.
void CALLBACK LeavePicker(HWND, UINT, UINT_PTR, DWORD)
{
    const HWND picker = FindWindowA("KivControls.Form", nullptr);
    if (picker && IsWindowVisible(picker))
        PostMessageA(picker, WM_CLOSE, 0, 0);
}

} // namespace

void RunEnumListRows(IClassFactory* factory, HWND parent)
{
    const HostedControl control(factory, parent, Place);
    ComPtr<_EnumList> list;
    Check(control.Object()->QueryInterface(IID_PPV_ARGS(&list)));
    const auto codes = MakeCom<Codes>();
    double opened = 0;
    std::vector<double> library;
    std::vector<double> bare;
    std::vector<double>* times = &library;
    codes->OnOpen = [&] { opened = Now(); };
    codes->OnClose = [&] { times->push_back(Now() - opened); };
    Check(list->putref_Database(codes.Get()));

    // They take turns, so that both meet the same machine.
    for (int run = 0; run < Runs; ++run)
    {
        times = &library;
        const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, LeavePicker);
        SendMessageA(FindWindowExA(control.Window(), nullptr, "BUTTON", nullptr), BM_CLICK, 0, 0);
        KillTimer(nullptr, timer);
        times = &bare;
        const HWND bareList = CreateWindowExA(WS_EX_CLIENTEDGE, "LISTBOX", "",
                                              WS_CHILD | WS_VSCROLL | LBS_NOTIFY | LBS_HASSTRINGS |
                                                  LBS_USETABSTOPS | LBS_NOINTEGRALHEIGHT,
                                              0, 0, 200, 200, parent, nullptr, nullptr, nullptr);
        FillBare(*codes.Get(), bareList);
        DestroyWindow(bareList);
    }
    codes->OnClose = [] {};
    Check(list->putref_Database(nullptr));
    Row row;
    row.Name = "EnumList: fill the picker with 10,000 rows";
    row.Microseconds = Middle(library);
    row.BareMicroseconds = Middle(bare);
    row.Goal = FillGoal;
    Print(row);
}

} // namespace kiv::bench
