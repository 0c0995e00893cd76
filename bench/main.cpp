#include "bench/AmountBench.h"
#include "bench/Bench.h"
#include "bench/ChkComboBench.h"
#include "bench/EnumListBench.h"
#include "bench/LoadedBench.h"
#include "bench/NumberBoxBench.h"
#include "bench/NumbersBench.h"
#include "bench/PicBench.h"
#include "bench/RulesBench.h"
#include "bench/YesNoBench.h"
#include "runtime/com/Errors.h"

#include <windows.h>

#include <KivControls.h>
#include <ole2.h>
#include <wrl/client.h>

#include <cstdio>

using Microsoft::WRL::ComPtr;

namespace
{

ComPtr<IClassFactory> FactoryOf(REFCLSID classId)
{
    ComPtr<IClassFactory> factory;
    kiv::Check(CoGetClassObject(classId, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory)));
    return factory;
}

// Measures the library that is registered on this machine.
void Run()
{
    const HWND parent = CreateWindowA("STATIC", "KivCtls benchmarks", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                      400, 300, nullptr, nullptr, nullptr, nullptr);
    if (!parent)
        kiv::ThrowLastError();
    kiv::bench::PrintHeading();
    kiv::bench::RunYesNoRows(FactoryOf(CLSID_YesNo).Get(), parent);
    kiv::bench::RunChkComboRows(FactoryOf(CLSID_ChkCombo).Get(), parent);
    kiv::bench::RunPicCommandRows(FactoryOf(CLSID_PicCommand).Get(), parent);
    kiv::bench::RunPicLiteRows(FactoryOf(CLSID_PicLite).Get());
    kiv::bench::RunNumberBoxRows(FactoryOf(CLSID_NumberBox).Get(), parent);
    kiv::bench::RunAmountRows(FactoryOf(CLSID_CurrencyBox).Get(), FactoryOf(CLSID_PercentBox).Get(), parent);
    kiv::bench::RunEnumListRows(FactoryOf(CLSID_EnumList).Get(), parent);
    kiv::bench::RunLoadedRows();
    kiv::bench::RunRulesRows();
    kiv::bench::RunNumbersRows();
    DestroyWindow(parent);
}

} // namespace

int main()
{
    if (FAILED(OleInitialize(nullptr)))
        return 1;
    int status = 0;
    try
    {
        Run();
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
