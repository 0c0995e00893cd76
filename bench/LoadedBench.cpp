#include "bench/LoadedBench.h"

#include "bench/Bench.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/LateBound.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/Variant.h"

#include <windows.h>

#include <KivControls.h>
#include <ocidl.h>

#include <algorithm>
#include <string>
#include <vector>

using Microsoft::WRL::ComPtr;

namespace kiv::bench
{

namespace
{

struct Entry
{
    const wchar_t* Name;
    Variant Value;
};

// A form file that says these things and nothing else.
class SomeEntries final : public ComObject<IPropertyBag>
{
public:
    explicit SomeEntries(std::vector<Entry> entries) : entries_(std::move(entries)) {}

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override
    {
        const auto found = std::ranges::find_if(
            entries_, [name](const Entry& each) { return std::wstring(name) == each.Name; });
        return found == entries_.end() ? E_INVALIDARG : VariantCopy(value, found->Value.Borrow());
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) noexcept override { return S_OK; }

private:
    std::vector<Entry> entries_;
};

// A control that was loaded with such entries, and one let after the other.
struct Loaded
{
    const wchar_t* Class;
    const CLSID& Id;
    std::vector<Entry> Entries;
    std::vector<Entry> Lets;
};

std::vector<Loaded> Loads()
{
    const std::vector<Entry> currencyLets = {
        {L"Value", Variant(1.5)},       {L"MaxValue", Variant(100L)},      {L"MinValue", Variant(-100L)},
        {L"NumIntDigits", Variant(5L)}, {L"AllowRounding", Variant(true)}, {L"NumDecDigits", Variant(2L)}};
    const std::vector<Entry> percentLets = {{L"Value", Variant(0.123)},     {L"MaxValue", Variant(50L)},
                                            {L"MinValue", Variant(1L)},     {L"MaxDigits", Variant(3L)},
                                            {L"Complement", Variant(true)}, {L"MaxDecimals", Variant(2L)}};
    std::vector<Loaded> loads;
    for (const short count : {short{32767}, short{-32768}})
    {
        for (const wchar_t* key : {L"NumDecDigits", L"NumIntDigits"})
            loads.push_back({L"CurrencyBox",
                             CLSID_CurrencyBox,
                             {{key, Variant(count)}, {L"AllowRounding", Variant(false)}},
                             currencyLets});
        for (const wchar_t* key : {L"MaxDecimals", L"MaxDigits"})
            loads.push_back({L"PercentBox", CLSID_PercentBox, {{key, Variant(count)}}, percentLets});
        loads.push_back(
            {L"NumberBox",
             CLSID_NumberBox,
             {{L"Style", Variant(3L)}, {L"MaxLength", Variant(count)}},
             {{L"Value", Variant(L"12")}, {L"MaxLength", Variant(short{4})}, {L"Style", Variant(0L)}}});
        loads.push_back({L"DateBox",
                         CLSID_DateBox,
                         {{L"Style", Variant(static_cast<long>(count))}},
                         {{L"Value", Variant(L"1/5/2001")},
                          {L"MaxDate", Variant::Date(40000)},
                          {L"Style", Variant(2L)}}});
    }
    return loads;
}

} // namespace

void RunLoadedRows()
{
    double slowest = 0;
    std::wstring slowestLet;
    for (const Loaded& load : Loads())
    {
        ComPtr<IDispatch> control;
        Check(CoCreateInstance(load.Id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control)));
        ComPtr<IPersistPropertyBag> persistent;
        Check(control.As(&persistent));
        const auto entries = MakeCom<SomeEntries>(load.Entries);
        Check(persistent->Load(entries.Get(), nullptr));
        for (const Entry& let : load.Lets)
        {
            const DISPID member = MemberOf(control.Get(), let.Name);
            DISPID named = DISPID_PROPERTYPUT;
            DISPPARAMS arguments = {let.Value.Borrow(), &named, 1, 1};
            // Refused or not: it takes its time either way.
            const double time = Measure(3, [&] {
                control->Invoke(member, IID_NULL, 0, DISPATCH_PROPERTYPUT, &arguments, nullptr, nullptr,
                                nullptr);
            });
            if (time <= slowest)
                continue;
            slowest = time;
            slowestLet = std::wstring(load.Class) + L"." + let.Name + L" after " + load.Entries.back().Name;
        }
    }
    std::string name = "Slowest let after odd entries of a form file: ";
    std::ranges::transform(slowestLet, std::back_inserter(name),
                           [](wchar_t each) { return static_cast<char>(each); });
    Print(name, slowest);
}

} // namespace kiv::bench
