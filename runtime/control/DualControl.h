#pragma once

#include "runtime/com/Automation.h"
#include "runtime/control/PropertyTable.h"
#include "runtime/control/UserControl.h"

#include <type_traits>

namespace kiv
{

// A control whose members are those of a dual interface: gives it its identity and its late binding, and
// hands its properties on to the table of a control.
template<class Dual, class Base>
class DualControl : public Base, public Dual
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override
    {
        return this->Outer()->QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return this->Outer()->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return this->Outer()->Release(); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override
    {
        return DispatchTable::GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** typeInfo) noexcept override
    {
        return DispatchTable::GetTypeInfo(__uuidof(Dual), index, typeInfo);
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
        const Microsoft::WRL::ComPtr<IUnknown> held(this->Outer());
        try
        {
            return Table().Invoke(static_cast<Dual*>(this), member, reserved, flags, arguments, result,
                                  exception, argument);
        }
        catch (...)
        {
            return RaiseCurrentException(exception, this->Class().Name);
        }
    }

protected:
    using Base::Base;

    void* FindInterface(REFIID iid) noexcept override
    {
        if (iid == __uuidof(Dual) || iid == IID_IDispatch)
            return static_cast<Dual*>(this);
        return Base::FindInterface(iid);
    }

    template<PropertyName Name, class Control, class T>
    HRESULT GetProperty(Control& control, T* result) noexcept
    {
        return this->Get(result, [&] {
            return ToAutomation(Control::Properties::Table.template Of<Name>().ValueOf(control), result);
        });
    }
    template<PropertyName Name, class Control, class T>
    HRESULT LetProperty(Control& control, const T& value) noexcept
    {
        return this->Member([&] {
            const auto& property = Control::Properties::Table.template Of<Name>();
            using Own = std::remove_cvref_t<decltype(property.ValueOf(control))>;
            property.LetValue(control, FromAutomation(value, static_cast<const Own*>(nullptr)));
        });
    }

private:
    static DispatchTable& Table() { return DispatchTable::Of(__uuidof(Dual)); }
};

} // namespace kiv
