#pragma once

#include "host/container/ControlSite.h"
#include "host/container/EventRecord.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kiv::test
{

// Keeps what a site hears from its control: each list grows until it is cleared.
class SiteRecorder : public host::SiteObserver
{
public:
    using CallHandler = std::function<std::optional<HRESULT>(std::string_view call)>;
    using EventHandler = std::function<void(const host::EventRecord& event, DISPPARAMS& raised)>;

    // What the form's code does; one of each, an empty one removes it.
    void HandleCalls(CallHandler handler) { handleCall_ = std::move(handler); }
    void HandleEvents(EventHandler handler) { handleEvent_ = std::move(handler); }

    const std::vector<std::string>& Calls() const { return calls_; } // "Interface::Method"
    void ClearCalls() { calls_.clear(); }
    const std::vector<host::EventRecord>& Events() const { return events_; }
    void ClearEvents() { events_.clear(); }
    const std::vector<std::wstring>& Notifications() const { return notifications_; } // IPropertyNotifySink
    void ClearNotifications() { notifications_.clear(); }
    const std::vector<host::LoggedError>& ErrorLog() const { return errors_; }

    // SiteObserver
    std::optional<HRESULT> OnCall(host::ControlSite& site, std::string_view call) override;
    void OnEvent(host::ControlSite& site, const host::EventRecord& event, DISPPARAMS& raised) override;
    void OnNotification(host::ControlSite& site, const std::wstring& property) override;
    void OnLoggedError(host::ControlSite& site, const host::LoggedError& error) override;

private:
    CallHandler handleCall_;
    EventHandler handleEvent_;
    std::vector<std::string> calls_;
    std::vector<host::EventRecord> events_;
    std::vector<std::wstring> notifications_;
    std::vector<host::LoggedError> errors_;
};

// The same options, with a recorder of the site's own.
host::SiteOptions Recorded(host::SiteOptions options);
// The recorder that a site was made with.
SiteRecorder& RecordOf(const host::ControlSite& site);

} // namespace kiv::test
