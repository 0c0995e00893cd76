#include "host/container/ControlClasses.h"

#include "runtime/com/Errors.h"

#include <objbase.h>

namespace kiv::host
{

ControlClasses::ControlClass& ControlClasses::Find(const std::wstring& progId)
{
    const auto [found, isNew] = classes_.try_emplace(progId);
    if (isNew)
        found->second.IsKnown = SUCCEEDED(CLSIDFromProgID(progId.c_str(), &found->second.Id));
    return found->second;
}

bool ControlClasses::Knows(const std::wstring& progId)
{
    return Find(progId).IsKnown;
}

Microsoft::WRL::ComPtr<IUnknown> ControlClasses::Make(const std::wstring& progId)
{
    ControlClass& made = Find(progId);
    if (!made.Factory)
        Check(CoGetClassObject(made.Id, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&made.Factory)));
    Microsoft::WRL::ComPtr<IUnknown> control;
    Check(made.Factory->CreateInstance(nullptr, IID_PPV_ARGS(&control)));
    return control;
}

} // namespace kiv::host
