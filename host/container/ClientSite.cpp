#include "host/container/ClientSite.h"

#include "host/container/Ambients.h"
#include "host/container/Extender.h"
#include "host/container/Form.h"
#include "host/container/FormFrame.h"
#include "host/container/ScreenUnits.h"
#include "runtime/core/Units.h"

#include <algorithm>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

// Every call of the control comes through here: it is recorded, offered to the test's hook, and then answered
// by the body, which gets the site as long as there is one.
template<class Body>
HRESULT ClientSite::Answer(std::string_view call, Body&& body) noexcept
{
    const ComPtr<ClientSite> alive(this);
    return Boundary([&]() -> HRESULT {
        if (!site_)
            return E_UNEXPECTED;
        site_->calls_.emplace_back(call);
        if (const SiteCallHook hook = site_->options_.onCall)
            if (const std::optional<HRESULT> answer = hook(call))
                return *answer;
        return site_ ? body(*site_) : E_UNEXPECTED;
    });
}

HRESULT ClientSite::QueryInterface(REFIID iid, void** object) noexcept
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (site_)
    {
        const SiteOptions& options = site_->Options();
        const bool refused = std::any_of(options.refused.begin(), options.refused.end(),
                                         [&](const IID& each) { return IsEqualIID(each, iid); });
        if (refused || (iid == IID_IDispatch && !options.giveAmbients))
            return E_NOINTERFACE;
    }
    return ComObject::QueryInterface(iid, object);
}

// IOleClientSite

HRESULT ClientSite::SaveObject() noexcept
{
    return Answer("IOleClientSite::SaveObject", [](ControlSite&) { return E_NOTIMPL; });
}

HRESULT ClientSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept
{
    if (moniker)
        *moniker = nullptr;
    return Answer("IOleClientSite::GetMoniker", [](ControlSite&) { return E_NOTIMPL; });
}

HRESULT ClientSite::GetContainer(IOleContainer** container) noexcept
{
    if (container)
        *container = nullptr;
    return Answer("IOleClientSite::GetContainer", [](ControlSite&) { return E_NOINTERFACE; });
}

HRESULT ClientSite::ShowObject() noexcept
{
    return Answer("IOleClientSite::ShowObject", [](ControlSite&) { return S_OK; });
}

HRESULT ClientSite::OnShowWindow(BOOL) noexcept
{
    return Answer("IOleClientSite::OnShowWindow", [](ControlSite&) { return S_OK; });
}

HRESULT ClientSite::RequestNewObjectLayout() noexcept
{
    return Answer("IOleClientSite::RequestNewObjectLayout", [](ControlSite&) { return E_NOTIMPL; });
}

// IOleInPlaceSiteEx

HRESULT ClientSite::GetWindow(HWND* window) noexcept
{
    if (!window)
        return E_POINTER;
    *window = nullptr;
    return Answer("IOleWindow::GetWindow", [&](ControlSite& site) {
        *window = site.Owner().Window();
        return *window ? S_OK : E_FAIL;
    });
}

HRESULT ClientSite::ContextSensitiveHelp(BOOL) noexcept
{
    return Answer("IOleWindow::ContextSensitiveHelp", [](ControlSite&) { return E_NOTIMPL; });
}

HRESULT ClientSite::CanInPlaceActivate() noexcept
{
    return Answer("IOleInPlaceSite::CanInPlaceActivate", [](ControlSite&) { return S_OK; });
}

HRESULT ClientSite::Activated()
{
    if (site_->state_ < SiteState::InPlaceActive)
        site_->state_ = SiteState::InPlaceActive;
    return S_OK;
}

HRESULT ClientSite::Deactivated()
{
    site_->Owner().SiteDeactivated(*site_);
    if (site_)
        site_->state_ = SiteState::Loaded;
    return S_OK;
}

HRESULT ClientSite::OnInPlaceActivate() noexcept
{
    return Answer("IOleInPlaceSite::OnInPlaceActivate", [this](ControlSite&) { return Activated(); });
}

HRESULT ClientSite::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) noexcept
{
    if (noRedraw)
        *noRedraw = FALSE;
    return Answer("IOleInPlaceSiteEx::OnInPlaceActivateEx", [this](ControlSite&) { return Activated(); });
}

HRESULT ClientSite::OnInPlaceDeactivate() noexcept
{
    return Answer("IOleInPlaceSite::OnInPlaceDeactivate", [this](ControlSite&) { return Deactivated(); });
}

HRESULT ClientSite::OnInPlaceDeactivateEx(BOOL) noexcept
{
    return Answer("IOleInPlaceSiteEx::OnInPlaceDeactivateEx", [this](ControlSite&) { return Deactivated(); });
}

HRESULT ClientSite::RequestUIActivate() noexcept
{
    return Answer("IOleInPlaceSiteEx::RequestUIActivate", [](ControlSite&) { return S_OK; });
}

HRESULT ClientSite::OnUIActivate() noexcept
{
    return Answer("IOleInPlaceSite::OnUIActivate", [](ControlSite& site) {
        site.state_ = SiteState::UIActive;
        site.Owner().SiteActivated(&site);
        return S_OK;
    });
}

HRESULT ClientSite::OnUIDeactivate(BOOL) noexcept
{
    return Answer("IOleInPlaceSite::OnUIDeactivate", [](ControlSite& site) {
        if (site.state_ == SiteState::UIActive)
            site.state_ = SiteState::InPlaceActive;
        site.Owner().SiteDeactivated(site);
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
    return Answer("IOleInPlaceSite::GetWindowContext", [&](ControlSite& site) {
        Form& form = site.Owner();
        ComPtr<FormFrame>(form.frame_).CopyTo(frame);
        *position = site.Bounds();
        GetClientRect(form.Window(), clip);
        info->fMDIApp = FALSE;
        info->hwndFrame = form.Window();
        info->haccel = nullptr;
        info->cAccelEntries = 0;
        return S_OK;
    });
}

HRESULT ClientSite::Scroll(SIZE) noexcept
{
    return Answer("IOleInPlaceSite::Scroll", [](ControlSite&) { return E_NOTIMPL; });
}

HRESULT ClientSite::DiscardUndoState() noexcept
{
    return Answer("IOleInPlaceSite::DiscardUndoState", [](ControlSite&) { return E_NOTIMPL; });
}

HRESULT ClientSite::DeactivateAndUndo() noexcept
{
    return Answer("IOleInPlaceSite::DeactivateAndUndo", [](ControlSite&) { return E_NOTIMPL; });
}

HRESULT ClientSite::OnPosRectChange(LPCRECT position) noexcept
{
    if (!position)
        return E_POINTER;
    return Answer("IOleInPlaceSite::OnPosRectChange", [&](ControlSite& site) {
        site.Move(*position);
        return S_OK;
    });
}

// IOleControlSite

HRESULT ClientSite::OnControlInfoChanged() noexcept
{
    return Answer("IOleControlSite::OnControlInfoChanged", [](ControlSite& site) {
        site.ReadControlInfo();
        return S_OK;
    });
}

HRESULT ClientSite::LockInPlaceActive(BOOL) noexcept
{
    return Answer("IOleControlSite::LockInPlaceActive", [](ControlSite&) { return S_OK; });
}

HRESULT ClientSite::GetExtendedControl(IDispatch** extended) noexcept
{
    if (!extended)
        return E_POINTER;
    *extended = nullptr;
    return Answer("IOleControlSite::GetExtendedControl", [&](ControlSite& site) -> HRESULT {
        if (!site.options_.extendedControl)
            return E_NOTIMPL;
        *extended = site.ExtendedControl();
        (*extended)->AddRef();
        return S_OK;
    });
}

HRESULT ClientSite::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept
{
    if (!himetric || !container)
        return E_POINTER;
    return Answer("IOleControlSite::TransformCoords", [&](ControlSite&) -> HRESULT {
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
                  [&](ControlSite& site) { return site.Owner().Navigate(*message) ? S_OK : S_FALSE; });
}

HRESULT ClientSite::OnFocus(BOOL gotFocus) noexcept
{
    return Answer("IOleControlSite::OnFocus", [&](ControlSite& site) {
        // A control that takes the focus without becoming UI-active is still the one that keys go to.
        if (gotFocus)
            site.Owner().SiteActivated(&site);
        return S_OK;
    });
}

HRESULT ClientSite::ShowPropertyFrame() noexcept
{
    return Answer("IOleControlSite::ShowPropertyFrame", [](ControlSite&) { return E_NOTIMPL; });
}

// Sinks

HRESULT ClientSite::OnChanged(DISPID member) noexcept
{
    return Answer("IPropertyNotifySink::OnChanged", [&](ControlSite& site) {
        site.notifications_.push_back(site.NameOfMember(member));
        return S_OK;
    });
}

HRESULT ClientSite::OnRequestEdit(DISPID) noexcept
{
    return Answer("IPropertyNotifySink::OnRequestEdit", [](ControlSite&) { return S_OK; });
}

void ClientSite::OnDataChange(FORMATETC*, STGMEDIUM*) noexcept
{
    static_cast<void>(Answer("IAdviseSink::OnDataChange", [](ControlSite&) { return S_OK; }));
}

void ClientSite::OnViewChange(DWORD, LONG) noexcept
{
    static_cast<void>(Answer("IAdviseSink::OnViewChange", [](ControlSite& site) {
        // A control with a window paints that itself.
        if (site.State() < SiteState::InPlaceActive && site.Visible())
            InvalidateRect(site.Owner().Window(), &site.Bounds(), FALSE);
        return S_OK;
    }));
}

void ClientSite::OnRename(IMoniker*) noexcept
{
    static_cast<void>(Answer("IAdviseSink::OnRename", [](ControlSite&) { return S_OK; }));
}

void ClientSite::OnSave() noexcept
{
    static_cast<void>(Answer("IAdviseSink::OnSave", [](ControlSite&) { return S_OK; }));
}

void ClientSite::OnClose() noexcept
{
    static_cast<void>(Answer("IAdviseSink::OnClose", [](ControlSite&) { return S_OK; }));
}

void ClientSite::OnViewStatusChange(DWORD) noexcept
{
    static_cast<void>(Answer("IAdviseSinkEx::OnViewStatusChange", [](ControlSite&) { return S_OK; }));
}

HRESULT ClientSite::AddError(LPCOLESTR property, EXCEPINFO* report) noexcept
{
    if (!property || !report)
        return E_POINTER;
    return Answer("IErrorLog::AddError", [&](ControlSite& site) {
        if (report->pfnDeferredFillIn)
            report->pfnDeferredFillIn(report);
        site.errors_.push_back({property, report->scode, std::wstring(Bstr::ViewOf(report->bstrSource)),
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
    return Answer("IDispatch::Invoke", [&](ControlSite& site) -> HRESULT {
        if (!(flags & DISPATCH_PROPERTYGET))
            return DISP_E_MEMBERNOTFOUND;
        if (!result)
            return E_POINTER;
        std::optional<Variant> value = AmbientProperty(site, member);
        if (!value)
            return DISP_E_MEMBERNOTFOUND;
        value->DetachTo(result);
        return S_OK;
    });
}

} // namespace kiv::host
