#include "host/container/EventSink.h"

#include "runtime/com/Boundary.h"
#include "runtime/com/TypeDescription.h"

#include <olectl.h>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

EventSink::EventSink(EventInterface events, Handler handler) :
    events_(std::move(events)), handler_(std::move(handler))
{
    if (events_.Description)
        ReadNames();
}

void EventSink::ReadNames()
{
    ITypeInfo* const description = events_.Description.Get();
    const UINT count = TypeAttributes(description)->cFuncs;
    for (UINT each = 0; each < count; ++each)
    {
        FUNCDESC* function = nullptr;
        if (FAILED(description->GetFuncDesc(each, &function)))
            continue;
        const DISPID member = function->memid;
        std::vector<BSTR> found(1U + static_cast<std::size_t>(function->cParams));
        description->ReleaseFuncDesc(function);

        UINT named = 0;
        if (FAILED(description->GetNames(member, found.data(), static_cast<UINT>(found.size()), &named)))
            continue;
        EventNames names;
        for (UINT name = 0; name < named; ++name)
        {
            (name == 0 ? names.Name : names.Arguments.emplace_back()) = Bstr::ViewOf(found[name]);
            SysFreeString(found[name]);
        }
        names_.emplace(member, std::move(names));
    }
}

ComPtr<IConnectionPoint> EventSink::ConnectionPoint(IUnknown* control) const
{
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    if (SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(&container))))
        container->FindConnectionPoint(events_.Id, &point);
    return point;
}

HRESULT EventSink::Connect(IUnknown* control)
{
    const ComPtr<IConnectionPoint> point = ConnectionPoint(control);
    if (!point)
        return CONNECT_E_NOCONNECTION;
    DWORD cookie = 0;
    const HRESULT hr = point->Advise(this, &cookie);
    if (SUCCEEDED(hr))
    {
        point_ = point;
        cookie_ = cookie;
    }
    return hr;
}

void EventSink::AdoptConnection(IUnknown* control, DWORD cookie)
{
    point_ = ConnectionPoint(control);
    cookie_ = cookie;
}

void EventSink::Disconnect()
{
    deaf_ = true;
    handler_ = nullptr;
    if (const ComPtr<IConnectionPoint> point = std::move(point_))
        point->Unadvise(cookie_);
}

EventRecord EventSink::Describe(DISPID member, const DISPPARAMS& raised) const
{
    EventRecord record;
    record.Id = member;
    const auto names = names_.find(member);
    record.Name = names == names_.end() ? L"#" + std::to_wstring(member) : names->second.Name;
    const UINT positional = raised.cArgs - raised.cNamedArgs;
    record.Arguments.resize(raised.cArgs);
    for (UINT each = 0; each < raised.cArgs; ++each)
    {
        const std::size_t place = each < raised.cNamedArgs
                                      ? static_cast<std::size_t>(raised.rgdispidNamedArgs[each])
                                      : raised.cArgs - 1 - each;
        if (place >= record.Arguments.size() || (each >= raised.cNamedArgs && place >= positional))
            throw ComError(DISP_E_PARAMNOTFOUND);
        EventArgument& argument = record.Arguments[place];
        argument.Name = names != names_.end() && place < names->second.Arguments.size()
                            ? names->second.Arguments[place]
                            : L"#" + std::to_wstring(place + 1);
        argument.Value = Variant(raised.rgvarg[each]);
    }
    return record;
}

HRESULT EventSink::QueryInterface(REFIID iid, void** object) noexcept
{
    if (object && events_.Id != IID_NULL && iid == events_.Id)
    {
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    return ComObject::QueryInterface(iid, object);
}

HRESULT EventSink::GetTypeInfoCount(UINT* count) noexcept
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept
{
    if (info)
        *info = nullptr;
    return E_NOTIMPL;
}

HRESULT EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept
{
    return DISP_E_UNKNOWNNAME;
}

HRESULT EventSink::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* raised, VARIANT*, EXCEPINFO*,
                          UINT*) noexcept
{
    return Boundary([&]() -> HRESULT {
        if (!raised)
            return E_POINTER;
        if (deaf_)
            return S_OK;
        // The handler may take the control, and with it this sink, off the form.
        const ComPtr<EventSink> alive(this);
        const EventRecord record = Describe(member, *raised);
        if (const Handler handler = handler_)
            handler(record, *raised);
        return S_OK;
    });
}

} // namespace kiv::host
