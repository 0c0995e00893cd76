#pragma once

#include "runtime/com/ComObject.h"
#include "tests/hostile/Host.h"

namespace kiv::test
{

// An object of the host's that tells it of every call, first of all of its being asked for an interface and
// of its being let go of.
template<class... Entries>
class Told : public ComObject<Entries...>
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override
    {
        const HRESULT answer = host_.ArrivedQuietly(name_, "QueryInterface");
        if (SUCCEEDED(answer))
            return ComObject<Entries...>::QueryInterface(iid, object);
        *object = nullptr;
        return answer;
    }
    ULONG STDMETHODCALLTYPE Release() noexcept override
    {
        host_.ArrivedQuietly(name_, "Release");
        return ComObject<Entries...>::Release();
    }

protected:
    Told(Host& host, const char* name) : host_(host), name_(name) {}
    HRESULT Tell(const char* member) const { return host_.Arrived(name_, member); }
    // For what the system calls on the control's behalf: what is thrown passes through it and leaves its
    // references.
    HRESULT TellQuietly(const char* member) const noexcept { return host_.ArrivedQuietly(name_, member); }
    Host& TheHost() const { return host_; }

private:
    Host& host_;
    const char* name_;
};

// Automation without names: an object that is asked by number only.
template<class... Entries>
class ToldDispatch : public Told<Entries...>
{
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return DISP_E_UNKNOWNNAME;
    }

protected:
    using Told<Entries...>::Told;
};

} // namespace kiv::test
