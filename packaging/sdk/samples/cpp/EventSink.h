// What every C++ host needs to hear the events of a control.
#pragma once

#include <KivControls.h>

#include <atomic>
#include <functional>
#include <utility>

// A sink for the events of one control: they are late-bound, by number, with the last argument first.
class EventSink : public IDispatch
{
public:
    using Handler = std::function<void(DISPID event, DISPPARAMS& arguments)>;

    EventSink(REFIID events, Handler handler) : events_(events), handler_(std::move(handler)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override
    {
        if (!object)
            return E_POINTER;
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == events_;
        *object = known ? this : nullptr;
        if (!known)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                     EXCEPINFO*, UINT*) override
    {
        handler_(event, *arguments);
        return S_OK;
    }

private:
    virtual ~EventSink() = default;

    const IID events_;
    const Handler handler_;
    std::atomic<ULONG> references_{0};
};
