#pragma once

#include <windows.h>

#include <unknwn.h>
#include <wrl/client.h>

#include <string>

namespace kiv::test
{

// The control library, loaded as COM would load it and called through its exports.
class Library
{
public:
    // The one that `kiv test` names, loaded for the whole run.
    static const Library& UnderTest();

    // Another file, loaded as long as this object lives; throws ComError when it cannot be loaded.
    explicit Library(const std::wstring& path);
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library();

    const std::wstring& Path() const { return path_; }
    HMODULE Module() const { return module_; }

    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) const;
    HRESULT CanUnloadNow() const;
    HRESULT Register() const;
    HRESULT Unregister() const;

    // A new object of a class; throws ComError.
    Microsoft::WRL::ComPtr<IUnknown> Create(REFCLSID clsid) const;

private:
    template<class Function>
    Function* Export(const char* name) const;

    std::wstring path_;
    HMODULE module_;
};

} // namespace kiv::test
