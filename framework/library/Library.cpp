#include "controls/amount/CurrencyBox.h"
#include "controls/amount/PercentBox.h"
#include "controls/choice/PicCommand.h"
#include "controls/choice/PicLite.h"
#include "controls/choice/YesNo.h"
#include "controls/lists/ChkCombo.h"
#include "controls/lists/EnumList.h"
#include "controls/masked/DateBox.h"
#include "controls/masked/NumberBox.h"
#include "framework/library/CompilerRuntime.h"
#include "framework/library/Registration.h"
#include "framework/subclass/ModuleData.h"
#include "runtime/com/Boundary.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/Module.h"
#include "runtime/com/PerThread.h"

#include <olectl.h>

#include <algorithm>

namespace kiv
{

namespace
{

using Creator = HRESULT (*)(IUnknown* outer, REFIID iid, void** object) noexcept;

struct LibraryClass
{
    const ControlClass* Class;
    Creator Create;
};

template<class Control>
constexpr LibraryClass ClassOf = {&Control::Class, &CreateControl<Control>};

// Every class that the library offers.
constexpr LibraryClass Classes[] = {
    ClassOf<YesNo>,       ClassOf<PicCommand>, ClassOf<PicLite>,  ClassOf<NumberBox>, ClassOf<DateBox>,
    ClassOf<CurrencyBox>, ClassOf<PercentBox>, ClassOf<ChkCombo>, ClassOf<EnumList>,
};

std::vector<const ControlClass*> PublishedClasses()
{
    std::vector<const ControlClass*> published;
    std::ranges::transform(Classes, std::back_inserter(published), &LibraryClass::Class);
    return published;
}

class ClassFactory final : public ComObject<IClassFactory>
{
public:
    explicit ClassFactory(Creator create) : create_(create) {}

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (outer && iid != IID_IUnknown)
            return CLASS_E_NOAGGREGATION;
        return Boundary([&] {
            if (!Module().Started)
                Main();
            return create_(outer, iid, object);
        });
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override
    {
        if (lock)
            ModuleReference::Lock();
        else
            ModuleReference::Unlock();
        return S_OK;
    }

private:
    const Creator create_;
};

// For the registration exports: any failure is one to the caller.
template<class Body>
HRESULT RegistrationResult(Body&& body) noexcept
{
    return SUCCEEDED(Boundary(std::forward<Body>(body))) ? S_OK : SELFREG_E_CLASS;
}

} // namespace

} // namespace kiv

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    const auto found = std::ranges::find(
        kiv::Classes, clsid, [](const kiv::LibraryClass& listed) -> REFCLSID { return listed.Class->Clsid; });
    if (found == std::ranges::end(kiv::Classes))
        return CLASS_E_CLASSNOTAVAILABLE;
    return kiv::Boundary(
        [&] { return kiv::MakeCom<kiv::ClassFactory>(found->Create)->QueryInterface(iid, object); });
}

STDAPI DllCanUnloadNow()
{
    return kiv::ModuleReference::Count() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer()
{
    return kiv::RegistrationResult([] { kiv::Register(kiv::PublishedClasses()); });
}

STDAPI DllUnregisterServer()
{
    return kiv::RegistrationResult([] { kiv::Unregister(kiv::PublishedClasses()); });
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* terminating)
{
    // At the end of the process the system takes everything back, and other modules may be gone already.
    const bool unloading = reason == DLL_PROCESS_DETACH && !terminating;
    if (reason == DLL_THREAD_DETACH || unloading)
        kiv::FreeThreadData();
    if (unloading)
        kiv::FreeCompilerRuntime();
    return TRUE;
}
