#pragma once

#include "host/container/SiteObserver.h"
#include "runtime/com/Variant.h"

#include <oleidl.h>

#include <optional>
#include <string_view>

namespace kiv::host
{

// Where a control finds itself on its form.
struct SitePlace
{
    HWND Window; // the parent of the control's own
    IOleInPlaceFrame* Frame;
    RECT Bounds; // pixels of that parent
};

// All that a control's calls on its site come to.
class SiteCalls
{
public:
    // Whether the site answers for an interface at all.
    virtual bool Has(REFIID iid) const = 0;
    // Before each of the calls: an answer that is to be given instead.
    virtual std::optional<HRESULT> Asked(std::string_view call) = 0;

    virtual void Activated() = 0; // in place
    virtual void Deactivated() = 0;
    virtual void UIActivated() = 0;
    virtual void UIDeactivated() = 0;
    virtual void GotFocus() = 0;
    virtual void WantsBounds(const RECT& bounds) = 0;
    virtual void ControlInfoChanged() = 0;
    virtual void ViewChanged() = 0;
    virtual void PropertyChanged(DISPID member) = 0;
    virtual void Logged(const LoggedError& error) = 0;
    virtual bool PassedKey(MSG& message) = 0; // true when the form dealt with it

    virtual SitePlace Place() const = 0;
    virtual IDispatch* Extended() const = 0; // null: there is none
    virtual std::optional<Variant> Ambient(DISPID ambient) const = 0;

protected:
    SiteCalls() = default;
    SiteCalls(const SiteCalls&) = default;
    SiteCalls& operator=(const SiteCalls&) = default;
    ~SiteCalls() = default;
};

} // namespace kiv::host
