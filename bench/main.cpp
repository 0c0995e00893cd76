#include "bench/AmountBench.h"
#include "bench/Bench.h"
#include "bench/ChkComboBench.h"
#include "bench/Controls.h"
#include "bench/EnumListBench.h"
#include "bench/FormBench.h"
#include "bench/LifeBench.h"
#include "bench/LoadedBench.h"
#include "bench/NumberBoxBench.h"
#include "bench/NumbersBench.h"
#include "bench/PicBench.h"
#include "bench/RulesBench.h"
#include "bench/TypingBench.h"
#include "bench/YesNoBench.h"
#include "runtime/com/Errors.h"

#include <windows.h>

#include <KivControls.h>
#include <ole2.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <span>

namespace
{

using kiv::bench::FactoryOf;

struct Group
{
    const char* Name;
    void (*Run)(HWND parent);
};

constexpr Group Groups[] = {
    {"YesNo", [](HWND parent) { kiv::bench::RunYesNoRows(FactoryOf(CLSID_YesNo).Get(), parent); }},
    {"ChkCombo", [](HWND parent) { kiv::bench::RunChkComboRows(FactoryOf(CLSID_ChkCombo).Get(), parent); }},
    {"PicCommand",
     [](HWND parent) { kiv::bench::RunPicCommandRows(FactoryOf(CLSID_PicCommand).Get(), parent); }},
    {"PicLite", [](HWND) { kiv::bench::RunPicLiteRows(FactoryOf(CLSID_PicLite).Get()); }},
    {"NumberBox",
     [](HWND parent) { kiv::bench::RunNumberBoxRows(FactoryOf(CLSID_NumberBox).Get(), parent); }},
    {"Amounts",
     [](HWND parent) {
         kiv::bench::RunAmountRows(FactoryOf(CLSID_CurrencyBox).Get(), FactoryOf(CLSID_PercentBox).Get(),
                                   parent);
     }},
    {"EnumList", [](HWND parent) { kiv::bench::RunEnumListRows(FactoryOf(CLSID_EnumList).Get(), parent); }},
    {"Life", kiv::bench::RunLifeRows},
    {"Typing", kiv::bench::RunTypingRows},
    {"Form", kiv::bench::RunFormRows},
    {"Loaded", [](HWND) { kiv::bench::RunLoadedRows(); }},
    {"Rules", [](HWND) { kiv::bench::RunRulesRows(); }},
    {"Numbers", [](HWND) { kiv::bench::RunNumbersRows(); }},
};

// Measures the library that is registered on this machine: the groups with these names, all for no name.
void Run(std::span<const char* const> names)
{
    const HWND parent = CreateWindowA("STATIC", "KivCtls benchmarks", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                      400, 300, nullptr, nullptr, nullptr, nullptr);
    if (!parent)
        kiv::ThrowLastError();
    kiv::bench::PrintHeading();
    for (const Group& group : Groups)
    {
        const auto isMeant = [&](const char* name) { return std::strcmp(name, group.Name) == 0; };
        if (names.empty() || std::ranges::any_of(names, isMeant))
            group.Run(parent);
    }
    kiv::bench::PrintSummary();
    DestroyWindow(parent);
}

} // namespace

int main(int count, char** words)
{
    if (FAILED(OleInitialize(nullptr)))
        return 1;
    int status = 0;
    try
    {
        Run(std::span(words, static_cast<std::size_t>(count)).subspan(1));
    }
    catch (const kiv::ComError& error)
    {
        std::fprintf(stderr, "kiv-bench: a call failed with 0x%08lx. Is the library registered?\n",
                     static_cast<unsigned long>(error.Result()));
        status = 1;
    }
    OleUninitialize();
    return status;
}
