#pragma once

#include "host/container/SiteCalls.h"
#include "runtime/com/Boundary.h"
#include "runtime/com/ComObject.h"

#include <ocidl.h>
#include <oleidl.h>

namespace kiv::host
{

// What the control sees of its container. Lives as long as the control keeps it; once detached from its
// ControlSite, every call fails.
class ClientSite final
    : public ComObject<IOleClientSite, Chain<IOleInPlaceSiteEx, IOleInPlaceSite, IOleWindow>, IOleControlSite,
                       IPropertyNotifySink, Chain<IAdviseSinkEx, IAdviseSink>, IErrorLog, IDispatch>
{
public:
    explicit ClientSite(SiteCalls& site) : site_(&site) {}
    void Detach() { site_ = nullptr; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override;

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override;
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override;
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL show) noexcept override;
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override;

    // IOleWindow, IOleInPlaceSite, IOleInPlaceSiteEx
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) noexcept override;
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               RECT* position, RECT* clip,
                                               OLEINPLACEFRAMEINFO* info) noexcept override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE extent) noexcept override;
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL undoable) noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override;
    HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override;
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override;
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT position) noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivateEx(BOOL noRedraw) noexcept override;
    HRESULT STDMETHODCALLTYPE RequestUIActivate() noexcept override;

    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override;
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL lock) noexcept override;
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** extended) noexcept override;
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL* himetric, POINTF* container,
                                              DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD modifiers) noexcept override;
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL gotFocus) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override;

    // IPropertyNotifySink
    HRESULT STDMETHODCALLTYPE OnChanged(DISPID member) noexcept override;
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID member) noexcept override;

    // IAdviseSink, IAdviseSinkEx
    void STDMETHODCALLTYPE OnDataChange(FORMATETC* format, STGMEDIUM* medium) noexcept override;
    void STDMETHODCALLTYPE OnViewChange(DWORD aspect, LONG index) noexcept override;
    void STDMETHODCALLTYPE OnRename(IMoniker* moniker) noexcept override;
    void STDMETHODCALLTYPE OnSave() noexcept override;
    void STDMETHODCALLTYPE OnClose() noexcept override;
    void STDMETHODCALLTYPE OnViewStatusChange(DWORD status) noexcept override;

    // IErrorLog
    HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR property, EXCEPINFO* report) noexcept override;

    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* members) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argument) noexcept override;

private:
    template<class Body>
    HRESULT Answer(std::string_view call, Body&& body) noexcept;

    SiteCalls* site_;
};

} // namespace kiv::host
