#pragma once

#include "host/container/EventInterface.h"
#include "host/container/EventRecord.h"
#include "runtime/com/ComObject.h"

#include <ocidl.h>

#include <functional>
#include <map>
#include <vector>

namespace kiv::host
{

// Hears a control's events, whatever they are: names them by the control's own type information and hands
// them on.
class EventSink final : public ComObject<IDispatch>
{
public:
    using Handler = std::function<void(const EventRecord&, DISPPARAMS&)>;

    EventSink(EventInterface events, Handler handler);

    bool Describes() const { return events_.Description != nullptr; }

    // Connects as IConnectionPoint has it. AdoptConnection: the control connected us itself.
    HRESULT Connect(IUnknown* control);
    void AdoptConnection(IUnknown* control, DWORD cookie);
    // From then on nothing is heard, even if the control keeps its reference.
    void Disconnect();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* members) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID locale, WORD flags, DISPPARAMS* raised,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) noexcept override;

private:
    struct EventNames
    {
        std::wstring Name;
        std::vector<std::wstring> Arguments;
    };

    void ReadNames();
    EventRecord Describe(DISPID member, const DISPPARAMS& raised) const;
    Microsoft::WRL::ComPtr<IConnectionPoint> ConnectionPoint(IUnknown* control) const;

    EventInterface events_;
    std::map<DISPID, EventNames> names_;
    Handler handler_;
    Microsoft::WRL::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
    bool deaf_ = false;
};

} // namespace kiv::host
