#pragma once

#include "runtime/com/InterfaceList.h"
#include "runtime/com/Module.h"

#include <atomic>
#include <tuple>

namespace kiv
{

// Reference counting and QueryInterface for a plain object that is not aggregated: sinks, enumerators, a
// host's sites. The module stays while it lives. Starts with one reference, which its maker owns (MakeCom
// takes it over). The first entry stands for IUnknown. Entries are interfaces, or Chain<Interface, Bases...>.
template<class... Entries>
class ComObject : public detail::InterfaceOf<Entries>...
{
public:
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override
    {
        if (!object)
            return E_POINTER;
        using First = detail::InterfaceOf<std::tuple_element_t<0, std::tuple<Entries...>>>;
        *object =
            iid == IID_IUnknown ? static_cast<First*>(this) : detail::FindInterface<Entries...>(this, iid);
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }

    ULONG STDMETHODCALLTYPE Release() noexcept override
    {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    ComObject() = default;
    virtual ~ComObject() = default;

private:
    std::atomic<ULONG> references_ = 1;
    const ModuleReference moduleReference_;
};

} // namespace kiv
