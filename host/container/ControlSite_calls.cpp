// What a control's calls and events come to.

#include "host/container/Ambients.h"
#include "host/container/ControlSite.h"
#include "host/container/Extender.h"
#include "host/container/ItemOwner.h"

#include <olectl.h>

#include <algorithm>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

bool ControlSite::Has(REFIID iid) const
{
    const bool refused = std::any_of(options_.refused.begin(), options_.refused.end(),
                                     [&](const IID& each) { return IsEqualIID(each, iid); });
    return !refused && (iid != IID_IDispatch || options_.giveAmbients);
}

std::optional<HRESULT> ControlSite::Asked(std::string_view call)
{
    // Copied, here and below: the observer may take this site off the form.
    const std::shared_ptr<SiteObserver> observer = options_.observer;
    return observer ? observer->OnCall(*this, call) : std::nullopt;
}

void ControlSite::Heard(const EventRecord& event, DISPPARAMS& raised)
{
    if (const std::shared_ptr<SiteObserver> observer = options_.observer)
        observer->OnEvent(*this, event, raised);
}

void ControlSite::PropertyChanged(DISPID member)
{
    // A control that can be used again takes input only where its container does.
    if (member == DISPID_ENABLED)
        TakeInputAsContainer();
    if (const std::shared_ptr<SiteObserver> observer = options_.observer)
        observer->OnNotification(*this, NameOfMember(member));
}

void ControlSite::Logged(const LoggedError& error)
{
    if (const std::shared_ptr<SiteObserver> observer = options_.observer)
        observer->OnLoggedError(*this, error);
}

std::wstring ControlSite::NameOfMember(DISPID member) const
{
    ComPtr<ITypeInfo> description;
    Bstr name;
    UINT found = 0;
    if (dispatch_ && SUCCEEDED(dispatch_->GetTypeInfo(0, LOCALE_USER_DEFAULT, &description)) && description &&
        SUCCEEDED(description->GetNames(member, name.Receive(), 1, &found)) && found == 1)
        return name.String();
    return L"#" + std::to_wstring(member);
}

void ControlSite::Activated()
{
    if (state_ < SiteState::InPlaceActive)
        state_ = SiteState::InPlaceActive;
    TakeInputAsContainer();
}

// The form last, in each of these: what it does may take this site off it.
void ControlSite::Deactivated()
{
    state_ = SiteState::Loaded;
    Owner().SiteDeactivated(*this);
}

void ControlSite::UIActivated()
{
    state_ = SiteState::UIActive;
    Owner().SiteActivated(*this);
}

void ControlSite::UIDeactivated()
{
    if (state_ == SiteState::UIActive)
        state_ = SiteState::InPlaceActive;
    Owner().SiteDeactivated(*this);
}

void ControlSite::GotFocus()
{
    // A control that takes the focus without becoming UI-active is still the one that keys go to.
    Owner().SiteActivated(*this);
}

void ControlSite::WantsBounds(const RECT& bounds)
{
    Move(bounds);
}

void ControlSite::ControlInfoChanged()
{
    ReadControlInfo();
}

void ControlSite::ViewChanged()
{
    // A control with a window paints that itself.
    if (state_ < SiteState::InPlaceActive && CanBeSeen())
        InvalidateRect(Owner().Page(), &Bounds(), FALSE);
}

bool ControlSite::PassedKey(MSG& message)
{
    return Owner().Navigate(message);
}

SitePlace ControlSite::Place() const
{
    return {Owner().Page(), Owner().InPlaceFrame(), Bounds()};
}

IDispatch* ControlSite::Extended() const
{
    return options_.extendedControl ? ExtendedControl() : nullptr;
}

std::optional<Variant> ControlSite::Ambient(DISPID ambient) const
{
    return AmbientProperty(*this, ambient);
}

} // namespace kiv::host
