#include "bench/Controls.h"

#include "runtime/com/Errors.h"

#include <KivControls.h>

using Microsoft::WRL::ComPtr;

namespace kiv::bench
{

std::span<const ControlOfLibrary> Controls()
{
    static const ControlOfLibrary controls[] = {
        {"YesNo", CLSID_YesNo},           {"NumberBox", CLSID_NumberBox},
        {"DateBox", CLSID_DateBox},       {"CurrencyBox", CLSID_CurrencyBox},
        {"PercentBox", CLSID_PercentBox}, {"EnumList", CLSID_EnumList},
        {"ChkCombo", CLSID_ChkCombo},     {"PicCommand", CLSID_PicCommand},
        {"PicLite", CLSID_PicLite},
    };
    return controls;
}

ComPtr<IClassFactory> FactoryOf(REFCLSID classId)
{
    ComPtr<IClassFactory> factory;
    Check(CoGetClassObject(classId, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory)));
    return factory;
}

} // namespace kiv::bench
