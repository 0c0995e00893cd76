#pragma once

#include "runtime/com/ComObject.h"

#include <windows.h>

#include <ocidl.h>
#include <wrl/client.h>

namespace kiv::bench
{

// The least site that a control can be active in: a window to be in, and agreement to everything.
class BareSite final : public ComObject<IOleClientSite, Chain<IOleInPlaceSite, IOleWindow>>
{
public:
    BareSite(HWND parent, const RECT& place) : parent_(parent), place_(place) {}

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) noexcept override { return E_NOINTERFACE; }
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }

    // IOleInPlaceSite
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               LPRECT position, LPRECT clip,
                                               LPOLEINPLACEFRAMEINFO info) noexcept override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) noexcept override { return S_OK; }

private:
    HWND parent_;
    RECT place_;
};

// A new control of a class, active in a site.
class HostedControl
{
public:
    // factory: of the control's class. Throws ComError.
    HostedControl(IClassFactory* factory, HWND parent, const RECT& place);
    HostedControl(const HostedControl&) = delete;
    HostedControl& operator=(const HostedControl&) = delete;
    ~HostedControl();

    IOleObject* Object() const { return object_.Get(); }
    HWND Window() const;

private:
    Microsoft::WRL::ComPtr<BareSite> site_;
    Microsoft::WRL::ComPtr<IOleObject> object_;
};

} // namespace kiv::bench
