#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"

#include <oaidl.h>
#include <ocidl.h>

#include <functional>
#include <string>
#include <vector>

namespace kiv::test
{

// A sink for a control's events. It hands each to a handler, as a host would to its form's code, and keeps
// their identifiers.
class EventRecorder final : public ComObject<IDispatch>
{
public:
    using Handler = std::function<void(DISPID event, DISPPARAMS& arguments)>;

    explicit EventRecorder(REFIID eventInterface) : interface_(eventInterface) {}

    void OnEvent(Handler handler) { handler_ = std::move(handler); }
    const std::vector<DISPID>& Events() const { return events_; }
    std::vector<DISPID> TakeEvents();
    // What the sink answers the control from now on.
    void AnswerWith(HRESULT answer) { answer_ = answer; }

    // ComObject
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argumentInError) noexcept override;

private:
    const IID interface_;
    Handler handler_;
    std::vector<DISPID> events_;
    HRESULT answer_ = S_OK;
};

// A sink connected to an object's connection point for as long as this lives, or until Disconnect.
class Connection
{
public:
    Connection(IUnknown* object, REFIID point, IUnknown* sink); // throws ComError
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    void Disconnect();
    // Forgets the connection without ending it, for an object that is gone.
    void Abandon() { point_.Reset(); }

private:
    Microsoft::WRL::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

} // namespace kiv::test
