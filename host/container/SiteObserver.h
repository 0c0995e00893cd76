#pragma once

#include <windows.h>

#include <oaidl.h>

#include <optional>
#include <string>
#include <string_view>

namespace kiv::host
{

class ControlSite;
struct EventRecord;

// What a control reported through IErrorLog while it was loaded or saved.
struct LoggedError
{
    std::wstring Property;
    HRESULT Result = S_OK;
    std::wstring Source;
    std::wstring Description;
};

// Hears what a control tells its site, as it happens, on the form's thread; the site itself keeps none of it.
// May do anything meanwhile, taking the control off the form included.
class SiteObserver
{
public:
    SiteObserver() = default;
    SiteObserver(const SiteObserver&) = delete;
    SiteObserver& operator=(const SiteObserver&) = delete;
    virtual ~SiteObserver() = default;

    // Asked before every call that the control makes on its site, with "Interface::Method"
    // ("IOleControlSite::OnFocus"). An HRESULT is returned to the control at once; nothing lets the call run.
    virtual std::optional<HRESULT> OnCall(ControlSite&, std::string_view /*call*/) { return std::nullopt; }
    // While the control is raising it, with what it passes.
    virtual void OnEvent(ControlSite&, const EventRecord&, DISPPARAMS& /*raised*/) {}
    // IPropertyNotifySink, with the property's name.
    virtual void OnNotification(ControlSite&, const std::wstring& /*property*/) {}
    virtual void OnLoggedError(ControlSite&, const LoggedError&) {}
};

} // namespace kiv::host
