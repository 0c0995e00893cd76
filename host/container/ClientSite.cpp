#include "host/container/ClientSite.h"

#include "runtime/core/Units.h"

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

// Every call of the control comes through here: it is offered to who watches the site, and then answered by
// the body, which gets the site as long as there is one.
template<class Body>
HRESULT ClientSite::Answer(std::string_view call, Body&& body) noexcept
{
    const ComPtr<ClientSite> alive(this);
    return Boundary([&]() -> HRESULT {
        if (!site_)
            return E_UNEXPECTED;
        if (const std::optional<HRESULT> answer = site_->Asked(call))
            return *answer;
        return site_ ? body(*site_) : E_UNEXPECTED;
    });
}

HRESULT ClientSite::QueryInterface(REFIID iid, void** object) noexcept
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (site_ && !site_->Has(iid))
        return E_NOINTERFACE;
    return ComObject::QueryInterface(iid, object);
}

// IOleClientSite

HRESULT ClientSite::SaveObject() noexcept
{
    return Answer("IOleClientSite::SaveObject", [](SiteCalls&) { return E_NOTIMPL; });
}

HRESULT ClientSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept
{
    if (moniker)
        *moniker = nullptr;
    return Answer("IOleClientSite::GetMoniker", [](SiteCalls&) { return E_NOTIMPL; });
}

HRESULT ClientSite::GetContainer(IOleContainer** container) noexcept
{
    if (container)
        *container = nullptr;
    return Answer("IOleClientSite::GetContainer", [](SiteCalls&) { return E_NOINTERFACE; });
}

HRESULT ClientSite::ShowObject() noexcept
{
    return Answer("IOleClientSite::ShowObject", [](SiteCalls&) { return S_OK; });
}

HRESULT ClientSite::OnShowWindow(BOOL) noexcept
{
    return Answer("IOleClientSite::OnShowWindow", [](SiteCalls&) { return S_OK; });
}

HRESULT ClientSite::RequestNewObjectLayout() noexcept
{
    return Answer("IOleClientSite::RequestNewObjectLayout", [](SiteCalls&) { return E_NOTIMPL; });
}

// IOleInPlaceSiteEx

HRESULT ClientSite::GetWindow(HWND* window) noexcept
{
    if (!window)
        return E_POINTER;
    *window = nullptr;
    return Answer("IOleWindow::GetWindow", [&](SiteCalls& site) {
        *window = site.Place().Window;
        return *window ? S_OK : E_FAIL;
    });
}

HRESULT ClientSite::ContextSensitiveHelp(BOOL) noexcept
{
    return Answer("IOleWindow::ContextSensitiveHelp", [](SiteCalls&) { return E_NOTIMPL; });
}

HRESULT ClientSite::CanInPlaceActivate() noexcept
{
    return Answer("IOleInPlaceSite::CanInPlaceActivate", [](SiteCalls&) { return S_OK; });
}

HRESULT ClientSite::OnInPlaceActivate() noexcept
{
    return Answer("IOleInPlaceSite::OnInPlaceActivate", [](SiteCalls& site) {
        site.Activated();
        return S_OK;
    });
}

HRESULT ClientSite::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) noexcept
{
    if (noRedraw)
        *noRedraw = FALSE;
    return Answer("IOleInPlaceSiteEx::OnInPlaceActivateEx", [](SiteCalls& site) {
        site.Activated();
        return S_OK;
    });
}

HRESULT ClientSite::OnInPlaceDeactivate() noexcept
{
    return Answer("IOleInPlaceSite::OnInPlaceDeactivate", [](SiteCalls& site) {
        site.Deactivated();
        return S_OK;
    });
}

HRESULT ClientSite::OnInPlaceDeactivateEx(BOOL) noexcept
{
    return Answer("IOleInPlaceSiteEx::OnInPlaceDeactivateEx", [](SiteCalls& site) {
        site.Deactivated();
        return S_OK;
    });
}

HRESULT ClientSite::RequestUIActivate() noexcept
{
    return Answer("IOleInPlaceSiteEx::RequestUIActivate", [](SiteCalls&) { return S_OK; });
}

HRESULT ClientSite::OnUIActivate() noexcept
{
    return Answer("IOleInPlaceSite::OnUIActivate", [](SiteCalls& site) {
        site.UIActivated();
        return S_OK;
    });
}

HRESULT ClientSite::OnUIDeactivate(BOOL) noexcept
{
    return Answer("IOleInPlaceSite::OnUIDeactivate", [](SiteCalls& site) {
        site.UIDeactivated();
        return S_OK;
    });
}

HRESULT ClientSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* position,
                                     RECT* clip, OLEINPLACEFRAMEINFO* info) noexcept
{
    if (!frame || !document || !position || !clip || !info)
        return E_POINTER;
    *frame = nullptr;
    *document = nullptr;
    return Answer("IOleInPlaceSite::GetWindowContext", [&](SiteCalls& site) {
        const SitePlace place = site.Place();
        ComPtr<IOleInPlaceFrame>(place.Frame).CopyTo(frame);
        *position = place.Bounds;
        GetClientRect(place.Window, clip);
        info->fMDIApp = FALSE;
        info->hwndFrame = place.Window;
        info->haccel = nullptr;
        info->cAccelEntries = 0;
        return S_OK;
    });
}

HRESULT ClientSite::Scroll(SIZE) noexcept
{
    return Answer("IOleInPlaceSite::Scroll", [](SiteCalls&) { return E_NOTIMPL; });
}

HRESULT ClientSite::DiscardUndoState() noexcept
{
    return Answer("IOleInPlaceSite::DiscardUndoState", [](SiteCalls&) { return E_NOTIMPL; });
}

HRESULT ClientSite::DeactivateAndUndo() noexcept
{
    return Answer("IOleInPlaceSite::DeactivateAndUndo", [](SiteCalls&) { return E_NOTIMPL; });
}

HRESULT ClientSite::OnPosRectChange(LPCRECT position) noexcept
{
    if (!position)
        return E_POINTER;
    return Answer("IOleInPlaceSite::OnPosRectChange", [&](SiteCalls& site) {
        site.WantsBounds(*position);
        return S_OK;
    });
}

// IOleControlSite

HRESULT ClientSite::OnControlInfoChanged() noexcept
{
    return Answer("IOleControlSite::OnControlInfoChanged", [](SiteCalls& site) {
        site.ControlInfoChanged();
        return S_OK;
    });
}

HRESULT ClientSite::LockInPlaceActive(BOOL) noexcept
{
    return Answer("IOleControlSite::LockInPlaceActive", [](SiteCalls&) { return S_OK; });
}

HRESULT ClientSite::GetExtendedControl(IDispatch** extended) noexcept
{
    if (!extended)
        return E_POINTER;
    *extended = nullptr;
    return Answer("IOleControlSite::GetExtendedControl", [&](SiteCalls& site) -> HRESULT {
        IDispatch* const object = site.Extended();
        return object ? object->QueryInterface(extended) : E_NOTIMPL;
    });
}

HRESULT ClientSite::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept
{
    if (!himetric || !container)
        return E_POINTER;
    return Answer("IOleControlSite::TransformCoords", [&](SiteCalls&) -> HRESULT {
        // The form's own unit is the twip, 1440 to the inch, in both axes and without an offset.
        constexpr float twipsPerHimetric = static_cast<float>(TwipsPerInch) / HimetricPerInch;
        if (flags & XFORMCOORDS_HIMETRICTOCONTAINER)
        {
            container->x = static_cast<float>(himetric->x) * twipsPerHimetric;
            container->y = static_cast<float>(himetric->y) * twipsPerHimetric;
            return S_OK;
        }
        if (flags & XFORMCOORDS_CONTAINERTOHIMETRIC)
        {
            himetric->x = RoundHalfEven(static_cast<double>(container->x / twipsPerHimetric));
            himetric->y = RoundHalfEven(static_cast<double>(container->y / twipsPerHimetric));
            return S_OK;
        }
        return E_INVALIDARG;
    });
}

HRESULT ClientSite::TranslateAccelerator(MSG* message, DWORD) noexcept
{
    if (!message)
        return E_POINTER;
    return Answer("IOleControlSite::TranslateAccelerator",
                  [&](SiteCalls& site) { return site.PassedKey(*message) ? S_OK : S_FALSE; });
}

HRESULT ClientSite::OnFocus(BOOL gotFocus) noexcept
{
    return Answer("IOleControlSite::OnFocus", [&](SiteCalls& site) {
        if (gotFocus)
            site.GotFocus();
        return S_OK;
    });
}

HRESULT ClientSite::ShowPropertyFrame() noexcept
{
    return Answer("IOleControlSite::ShowPropertyFrame", [](SiteCalls&) { return E_NOTIMPL; });
}

// Sinks

HRESULT ClientSite::OnChanged(DISPID member) noexcept
{
    return Answer("IPropertyNotifySink::OnChanged", [&](SiteCalls& site) {
        site.PropertyChanged(member);
        return S_OK;
    });
}

HRESULT ClientSite::OnRequestEdit(DISPID) noexcept
{
    return Answer("IPropertyNotifySink::OnRequestEdit", [](SiteCalls&) { return S_OK; });
}

void ClientSite::OnDataChange(FORMATETC*, STGMEDIUM*) noexcept
{
    static_cast<void>(Answer("IAdviseSink::OnDataChange", [](SiteCalls&) { return S_OK; }));
}

void ClientSite::OnViewChange(DWORD, LONG) noexcept
{
    static_cast<void>(Answer("IAdviseSink::OnViewChange", [](SiteCalls& site) {
        site.ViewChanged();
        return S_OK;
    }));
}

void ClientSite::OnRename(IMoniker*) noexcept
{
    static_cast<void>(Answer("IAdviseSink::OnRename", [](SiteCalls&) { return S_OK; }));
}

void ClientSite::OnSave() noexcept
{
    static_cast<void>(Answer("IAdviseSink::OnSave", [](SiteCalls&) { return S_OK; }));
}

void ClientSite::OnClose() noexcept
{
    static_cast<void>(Answer("IAdviseSink::OnClose", [](SiteCalls&) { return S_OK; }));
}

void ClientSite::OnViewStatusChange(DWORD) noexcept
{
    static_cast<void>(Answer("IAdviseSinkEx::OnViewStatusChange", [](SiteCalls&) { return S_OK; }));
}

HRESULT ClientSite::AddError(LPCOLESTR property, EXCEPINFO* report) noexcept
{
    if (!property || !report)
        return E_POINTER;
    return Answer("IErrorLog::AddError", [&](SiteCalls& site) {
        if (report->pfnDeferredFillIn)
            report->pfnDeferredFillIn(report);
        site.Logged({property, report->scode, std::wstring(Bstr::ViewOf(report->bstrSource)),
                     std::wstring(Bstr::ViewOf(report->bstrDescription))});
        return S_OK;
    });
}

// Ambient properties

HRESULT ClientSite::GetTypeInfoCount(UINT* count) noexcept
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT ClientSite::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept
{
    if (info)
        *info = nullptr;
    return E_NOTIMPL;
}

HRESULT ClientSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept
{
    return DISP_E_UNKNOWNNAME;
}

HRESULT ClientSite::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                           UINT*) noexcept
{
    return Answer("IDispatch::Invoke", [&](SiteCalls& site) -> HRESULT {
        if (!(flags & DISPATCH_PROPERTYGET))
            return DISP_E_MEMBERNOTFOUND;
        if (!result)
            return E_POINTER;
        std::optional<Variant> value = site.Ambient(member);
        if (!value)
            return DISP_E_MEMBERNOTFOUND;
        value->DetachTo(result);
        return S_OK;
    });
}

} // namespace kiv::host
