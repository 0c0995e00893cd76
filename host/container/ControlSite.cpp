#include "host/container/ControlSite.h"

#include "host/container/Automation.h"
#include "host/container/ClientSite.h"
#include "host/container/EventSink.h"
#include "host/container/Extender.h"
#include "host/container/ItemOwner.h"
#include "host/container/ScreenUnits.h"
#include "runtime/com/MakeCom.h"

#include <olectl.h>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

ControlSite::ControlSite(ItemOwner& form, IUnknown* control, SiteOptions options) :
    FormItem(form, options.container, options.name, options.bounds, options.tabIndex),
    options_(std::move(options)),
    control_(control),
    site_(MakeCom<ClientSite>(static_cast<SiteCalls&>(*this))),
    events_(
        MakeCom<EventSink>(FindEventInterface(control),
                           [this](const EventRecord& event, DISPPARAMS& raised) { Heard(event, raised); })),
    extender_(MakeCom<Extender>(*this))
{
    static_cast<void>(control_.As(&dispatch_));
    visible_ = options_.visible;
    SetTabStop(options_.tabStop);
}

ControlSite::~ControlSite()
{
    Close();
}

Variant ControlSite::Get(std::wstring_view property) const
{
    return GetProperty(dispatch_.Get(), property);
}

void ControlSite::Put(std::wstring_view property, const Variant& value, const std::vector<Variant>& index)
{
    PutProperty(dispatch_.Get(), property, value, index);
}

Variant ControlSite::Call(std::wstring_view method, const std::vector<Variant>& arguments)
{
    return CallMethod(dispatch_.Get(), method, arguments);
}

bool ControlSite::HasMember(std::wstring_view name) const
{
    return kiv::host::HasMember(dispatch_.Get(), name);
}

HWND ControlSite::Window() const
{
    HWND window = nullptr;
    if (state_ >= SiteState::InPlaceActive)
        if (const auto inPlace = Query<IOleInPlaceObject>())
            inPlace->GetWindow(&window);
    return window;
}

void ControlSite::SetUserMode(bool userMode)
{
    options_.userMode = userMode;
    AmbientChanged(DISPID_AMBIENT_USERMODE);
    AmbientChanged(DISPID_AMBIENT_UIDEAD);
}

void ControlSite::AmbientChanged(DISPID ambient)
{
    if (const auto control = Query<IOleControl>())
        control->OnAmbientPropertyChange(ambient);
}

IDispatch* ControlSite::ExtendedControl() const
{
    return extender_.Get();
}

HRESULT ControlSite::Draw(HDC context, const RECT& bounds) const
{
    const auto view = Query<IViewObject>();
    if (!view)
        return E_NOINTERFACE;
    const RECTL target = {bounds.left, bounds.top, bounds.right, bounds.bottom};
    return view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, &target, nullptr, nullptr, 0);
}

void ControlSite::Move(const RECT& bounds)
{
    FormItem::Move(bounds);
    if (const auto object = Query<IOleObject>())
    {
        SIZEL extent = PixelsToHimetric(SizeOf(bounds));
        object->SetExtent(DVASPECT_CONTENT, &extent);
    }
    if (state_ < SiteState::InPlaceActive)
        return;
    if (const auto inPlace = Query<IOleInPlaceObject>())
    {
        RECT clip = {};
        GetClientRect(Owner().Page(), &clip);
        inPlace->SetObjectRects(&bounds_, &clip);
    }
}

void ControlSite::SetVisible(bool visible)
{
    // The verb is given here, whatever the control was told before.
    containerCanBeSeen_ = ContainerCanBeSeen();
    FormItem::SetVisible(visible);
    if (ContainerCanBeSeen() && !Owner().DesignMode())
        DoVerb(visible ? OLEIVERB_SHOW : OLEIVERB_HIDE);
}

void ControlSite::OnContainerChanged()
{
    FormItem::OnContainerChanged();
    if (!Container())
        return;
    // Shown only when it was not: a control may take the focus when it is shown. What it raises meanwhile may
    // take it off the form.
    const std::weak_ptr<const FormItem*> alive = Alive();
    if (const bool seen = CanBeSeen(); Visible() && seen != containerCanBeSeen_)
    {
        containerCanBeSeen_ = seen;
        DoVerb(seen ? OLEIVERB_SHOW : OLEIVERB_HIDE);
    }
    if (!alive.expired())
        TakeInputAsContainer();
}

// A control in a frame that is disabled looks as ever, but nothing reaches it.
void ControlSite::TakeInputAsContainer()
{
    if (!Container())
        return;
    if (const HWND window = Window())
        EnableWindow(window, ContainerCanBeUsed());
}

bool ControlSite::Enabled() const
{
    try
    {
        return !dispatch_ || GetProperty(dispatch_.Get(), DISPID_ENABLED).Bool();
    }
    catch (const ComError&)
    {
        return true; // a control without the property always answers
    }
}

void ControlSite::SetEnabled(bool enabled)
{
    PutProperty(dispatch_.Get(), DISPID_ENABLED, Variant(enabled));
}

bool ControlSite::TakesFocus() const
{
    constexpr DWORD neverFocused = OLEMISC_NOUIACTIVATE | OLEMISC_ACTSLIKELABEL | OLEMISC_INVISIBLEATRUNTIME;
    return state_ >= SiteState::InPlaceActive && CanBeSeen() && !(miscStatus_ & neverFocused) && CanBeUsed();
}

bool ControlSite::HasFocus() const
{
    const HWND window = Window();
    const HWND focus = GetFocus();
    return window && focus && (focus == window || IsChild(window, focus));
}

void ControlSite::Focus()
{
    // An event raised on the way may take this site off the form.
    const HWND window = Window();
    UIActivate();
    const HWND focus = GetFocus();
    if (IsWindow(window) && focus != window && !IsChild(window, focus))
        SetFocus(window);
}

bool ControlSite::HasMnemonic(const MSG& message) const
{
    if (!controlInfo_.hAccel || controlInfo_.cAccel == 0 || !TakesFocus())
        return false;
    MSG copy = message;
    return IsAccelerator(controlInfo_.hAccel, controlInfo_.cAccel, &copy, nullptr) != FALSE;
}

void ControlSite::OnMnemonic(MSG& message)
{
    if (const auto control = Query<IOleControl>())
        control->OnMnemonic(&message);
}

void ControlSite::ReadControlInfo()
{
    controlInfo_ = {};
    controlInfo_.cb = sizeof(controlInfo_);
    const auto control = Query<IOleControl>();
    if (!control || FAILED(control->GetControlInfo(&controlInfo_)))
        controlInfo_ = {};
}

bool ControlSite::EatsReturn() const
{
    return (controlInfo_.dwFlags & CTRLINFO_EATS_RETURN) != 0;
}

bool ControlSite::EatsEscape() const
{
    return (controlInfo_.dwFlags & CTRLINFO_EATS_ESCAPE) != 0;
}

} // namespace kiv::host
