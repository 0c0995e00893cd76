#pragma once

#include "framework/subclass/MessageLong.h"
#include "runtime/com/Boundary.h"
#include "runtime/com/DispatchTable.h"

#include <KivControls.h>

namespace kiv
{

// The ISubClass interface of a control: a part of it, whose messages go to the control's ISubClass_WndProc if
// they are those of a window that it hooks.
template<class Control>
class SubClassOwner final : public ISubClass
{
public:
    explicit SubClassOwner(Control& control) noexcept : control_(control) {}
    SubClassOwner(const SubClassOwner&) = delete;
    SubClassOwner& operator=(const SubClassOwner&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override
    {
        return control_.Outer()->QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return control_.Outer()->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return control_.Outer()->Release(); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override
    {
        return DispatchTable::GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** typeInfo) noexcept override
    {
        return DispatchTable::GetTypeInfo(__uuidof(ISubClass), index, typeInfo);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override
    {
        return Boundary([&] { return Table().GetIDsOfNames(names, count, ids); });
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) noexcept override
    {
        return Boundary([&] {
            return Table().Invoke(this, member, reserved, flags, arguments, result, exception, argument);
        });
    }

    // Nothing may unwind through a window procedure: a control's error ends the message.
    HRESULT STDMETHODCALLTYPE WndProc(LONG hwnd, LONG msg, MessageLong wParam, MessageLong lParam,
                                      MessageLong* result) noexcept override
    {
        if (!result)
            return E_POINTER;
        *result = 0;
        // Whatever the message makes the host do, the control lives until it is handled.
        const Microsoft::WRL::ComPtr<ISubClass> held(this);
        const auto window = static_cast<HWND>(LongToHandle(hwnd));
        const auto message = static_cast<UINT>(msg);
        const auto first = static_cast<WPARAM>(wParam);
        const auto second = static_cast<LPARAM>(lParam);
        // Anybody can call this, with a window of somebody else's.
        const bool isHooked = control_.Hooks(window);
        return Boundary([&] {
            *result =
                static_cast<MessageLong>(isHooked ? control_.ISubClass_WndProc(window, message, first, second)
                                                  : DefWindowProcA(window, message, first, second));
        });
    }

private:
    static DispatchTable& Table() { return DispatchTable::Of(__uuidof(ISubClass)); }

    Control& control_;
};

} // namespace kiv
