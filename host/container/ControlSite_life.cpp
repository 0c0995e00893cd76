// The life of a hosted control: sited and loaded, activated, saved, closed.

#include "host/container/ClientSite.h"
#include "host/container/ControlSite.h"
#include "host/container/EventSink.h"
#include "host/container/Extender.h"
#include "host/container/ItemOwner.h"
#include "host/container/ScreenUnits.h"

#include <olectl.h>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

std::unique_ptr<ControlSite> ControlSite::Make(ItemOwner& form, IUnknown* control, SiteOptions options)
{
    std::unique_ptr<ControlSite> site(new ControlSite(form, control, std::move(options)));
    site->Attach();
    return site;
}

void ControlSite::Attach()
{
    if (const auto object = Query<IOleObject>())
        object->GetMiscStatus(DVASPECT_CONTENT, &miscStatus_);

    if (!options_.quickActivate || FAILED(QuickActivate()))
    {
        const bool siteFirst = (miscStatus_ & OLEMISC_SETCLIENTSITEFIRST) != 0;
        if (siteFirst)
            SetClientSite(site_.Get());
        Check(Load());
        if (!siteFirst)
            SetClientSite(site_.Get());
        Connect();
    }
    else
    {
        Check(Load());
    }
    state_ = SiteState::Loaded;
    if (const auto view = Query<IViewObject>())
        view->SetAdvise(DVASPECT_CONTENT, 0, site_.Get());
    AgreeOnSize();
    ReadControlInfo();
}

void ControlSite::SetClientSite(IOleClientSite* site)
{
    if (const auto object = Query<IOleObject>())
        object->SetClientSite(site);
}

// One call in place of SetClientSite and the connections.
HRESULT ControlSite::QuickActivate()
{
    const auto quick = Query<IQuickActivate>();
    if (!quick)
        return E_NOINTERFACE;
    QACONTAINER container = {};
    container.cbSize = sizeof(container);
    container.pClientSite = site_.Get();
    container.pAdviseSink = site_.Get();
    container.pPropertyNotifySink = site_.Get();
    container.pUnkEventSink = events_->Describes() ? events_.Get() : nullptr;
    container.dwAmbientFlags =
        static_cast<DWORD>(QACONTAINER_SUPPORTSMNEMONICS | QACONTAINER_AUTOCLIP |
                           (options_.userMode ? QACONTAINER_USERMODE : QACONTAINER_UIDEAD));
    container.colorFore = options_.ambientForeColor.value_or(0x80000000U | COLOR_BTNTEXT);
    container.colorBack = options_.ambientBackColor.value_or(0x80000000U | COLOR_BTNFACE);
    ComPtr<IFont> font;
    IFontDisp* const ambient = options_.ambientFont ? options_.ambientFont.Get() : Owner().FontObject();
    if (options_.giveAmbients && SUCCEEDED(ambient->QueryInterface(IID_PPV_ARGS(&font))))
        container.pFont = font.Get();
    container.dwAppearance = 1;
    container.lcid = GetUserDefaultLCID();

    QACONTROL control = {};
    control.cbSize = sizeof(control);
    const HRESULT hr = quick->QuickActivate(&container, &control);
    if (FAILED(hr))
        return hr;
    miscStatus_ = control.dwMiscStatus;
    if (control.dwEventCookie)
        events_->AdoptConnection(control_.Get(), control.dwEventCookie);
    else
        events_->Connect(control_.Get());
    notifyCookie_ = control.dwPropNotifyCookie;
    if (notifyCookie_ == 0)
        ConnectNotifications();
    return hr;
}

HRESULT ControlSite::Load()
{
    if (const auto* bag = std::get_if<PropertyBag*>(&options_.load))
    {
        const auto persist = Query<IPersistPropertyBag>();
        return persist ? persist->Load(*bag, site_.Get()) : E_NOINTERFACE;
    }
    if (const auto* stream = std::get_if<ComPtr<IStream>>(&options_.load))
    {
        const auto persist = Query<IPersistStreamInit>();
        return persist ? persist->Load(stream->Get()) : E_NOINTERFACE;
    }
    if (const auto* storage = std::get_if<ComPtr<IStorage>>(&options_.load))
    {
        const auto persist = Query<IPersistStorage>();
        return persist ? persist->Load(storage->Get()) : E_NOINTERFACE;
    }
    return InitNew();
}

HRESULT ControlSite::InitNew()
{
    if (const auto bag = Query<IPersistPropertyBag>())
        return bag->InitNew();
    if (const auto stream = Query<IPersistStreamInit>())
        return stream->InitNew();
    if (const auto persist = Query<IPersistStorage>())
    {
        ComPtr<IStorage> storage;
        const HRESULT hr = StgCreateDocfile(
            nullptr, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE, 0, &storage);
        return FAILED(hr) ? hr : persist->InitNew(storage.Get());
    }
    return S_OK; // nothing to initialise: the control keeps no state
}

void ControlSite::Connect()
{
    events_->Connect(control_.Get());
    ConnectNotifications();
}

ComPtr<IConnectionPoint> ControlSite::NotificationPoint() const
{
    ComPtr<IConnectionPoint> point;
    if (const auto container = Query<IConnectionPointContainer>())
        container->FindConnectionPoint(IID_IPropertyNotifySink, &point);
    return point;
}

void ControlSite::ConnectNotifications()
{
    if (const auto point = NotificationPoint())
        point->Advise(static_cast<IPropertyNotifySink*>(site_.Get()), &notifyCookie_);
}

// The form's size where it gave one, else the control's own.
void ControlSite::AgreeOnSize()
{
    const auto object = Query<IOleObject>();
    if (!object)
        return;
    SIZEL extent = {};
    if (!IsRectEmpty(&bounds_))
    {
        extent = PixelsToHimetric(SizeOf(bounds_));
        object->SetExtent(DVASPECT_CONTENT, &extent);
    }
    else if (SUCCEEDED(object->GetExtent(DVASPECT_CONTENT, &extent)))
    {
        const SIZE size = HimetricToPixels(extent);
        bounds_.right = bounds_.left + size.cx;
        bounds_.bottom = bounds_.top + size.cy;
    }
}

HRESULT ControlSite::DoVerb(LONG verb)
{
    const auto object = Query<IOleObject>();
    return object ? object->DoVerb(verb, nullptr, site_.Get(), 0, Owner().Page(), &bounds_) : S_FALSE;
}

HRESULT ControlSite::Activate()
{
    return state_ >= SiteState::InPlaceActive ? S_FALSE : DoVerb(OLEIVERB_INPLACEACTIVATE);
}

HRESULT ControlSite::UIActivate()
{
    return state_ == SiteState::UIActive ? S_FALSE : DoVerb(OLEIVERB_UIACTIVATE);
}

HRESULT ControlSite::UIDeactivate()
{
    const auto inPlace = Query<IOleInPlaceObject>();
    return state_ == SiteState::UIActive && inPlace ? inPlace->UIDeactivate() : S_FALSE;
}

HRESULT ControlSite::Deactivate()
{
    const auto inPlace = Query<IOleInPlaceObject>();
    return state_ >= SiteState::InPlaceActive && inPlace ? inPlace->InPlaceDeactivate() : S_FALSE;
}

HRESULT ControlSite::Close()
{
    if (!control_)
        return S_FALSE;
    Deactivate();
    if (!control_) // an event handler was quicker
        return S_FALSE;
    HRESULT hr = S_OK;
    const ComPtr<IUnknown> control = control_;
    if (const auto object = Query<IOleObject>())
        hr = object->Close(OLECLOSE_NOSAVE);
    events_->Disconnect();
    if (const auto point = NotificationPoint(); point && notifyCookie_)
        point->Unadvise(notifyCookie_);
    if (const auto view = Query<IViewObject>())
        view->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
    SetClientSite(nullptr);

    Owner().SiteDeactivated(*this);
    site_->Detach();
    extender_->Detach();
    dispatch_.Reset();
    control_.Reset();
    controlInfo_ = {};
    state_ = SiteState::Closed;
    return hr;
}

HRESULT ControlSite::Save(PropertyBag& bag, bool clearDirty)
{
    const auto persist = Query<IPersistPropertyBag>();
    return persist ? persist->Save(&bag, clearDirty, TRUE) : E_NOINTERFACE;
}

HRESULT ControlSite::Save(IStream* stream, bool clearDirty)
{
    const auto persist = Query<IPersistStreamInit>();
    return persist ? persist->Save(stream, clearDirty) : E_NOINTERFACE;
}

} // namespace kiv::host
