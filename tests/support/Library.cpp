#include "tests/support/Library.h"

#include "runtime/com/Errors.h"
#include "tests/support/Files.h"

#include <type_traits>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

const Library& Library::UnderTest()
{
    // Never freed: objects of a test that failed may outlive the tests.
    static const Library* const library = new Library(RequiredVariable(L"KIVCTLS_OCX"));
    return *library;
}

Library::Library(const std::wstring& path) :
    path_(path), module_(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH))
{
    if (!module_)
        ThrowLastError();
}

Library::~Library()
{
    FreeLibrary(module_);
}

template<class Function>
Function* Library::Export(const char* name) const
{
    const FARPROC found = GetProcAddress(module_, name);
    if (!found)
        ThrowLastError();
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

HRESULT Library::GetClassObject(REFCLSID clsid, REFIID iid, void** object) const
{
    return Export<std::remove_pointer_t<LPFNGETCLASSOBJECT>>("DllGetClassObject")(clsid, iid, object);
}

HRESULT Library::CanUnloadNow() const
{
    return Export<std::remove_pointer_t<LPFNCANUNLOADNOW>>("DllCanUnloadNow")();
}

HRESULT Library::Register() const
{
    return Export<HRESULT WINAPI()>("DllRegisterServer")();
}

HRESULT Library::Unregister() const
{
    return Export<HRESULT WINAPI()>("DllUnregisterServer")();
}

ComPtr<IUnknown> Library::Create(REFCLSID clsid) const
{
    ComPtr<IClassFactory> factory;
    Check(GetClassObject(clsid, IID_PPV_ARGS(&factory)));
    ComPtr<IUnknown> object;
    Check(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)));
    return object;
}

} // namespace kiv::test
