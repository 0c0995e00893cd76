#pragma once

#include "runtime/forms/UserControl.h"

namespace kiv
{

// A control whose members are those of a dual interface: gives it its identity and its late binding.
template<class Dual>
class DualControl : public UserControl, public Dual
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override
    {
        return Outer()->QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return Outer()->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return Outer()->Release(); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override
    {
        if (!count)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** typeInfo) noexcept override
    {
        if (!typeInfo)
            return E_POINTER;
        *typeInfo = nullptr;
        if (index != 0)
            return DISP_E_BADINDEX;
        return Boundary(
            [&] { Check(Microsoft::WRL::ComPtr<ITypeInfo>(Table().TypeInfo()).CopyTo(typeInfo)); });
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override
    {
        return Boundary([&] { return Table().GetIDsOfNames(names, count, ids); });
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) noexcept override
    {
        // An object among the arguments is asked for its value, and may do anything meanwhile.
        const Microsoft::WRL::ComPtr<IUnknown> held(Outer());
        try
        {
            return Table().Invoke(static_cast<Dual*>(this), member, reserved, flags, arguments, result,
                                  exception, argument);
        }
        catch (...)
        {
            return RaiseCurrentException(exception, Class().Name);
        }
    }

protected:
    using UserControl::UserControl;

    void* FindInterface(REFIID iid) noexcept override
    {
        if (iid == __uuidof(Dual) || iid == IID_IDispatch)
            return static_cast<Dual*>(this);
        return UserControl::FindInterface(iid);
    }

private:
    static DispatchTable& Table() { return DispatchTable::Of(__uuidof(Dual)); }
};

} // namespace kiv
