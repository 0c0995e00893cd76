#include "tests/gui/SiteRecorder.h"

namespace kiv::test
{

// The handlers are copied: what they do may replace them, or end the recorder with its site.

std::optional<HRESULT> SiteRecorder::OnCall(host::ControlSite&, std::string_view call)
{
    calls_.emplace_back(call);
    const CallHandler handler = handleCall_;
    return handler ? handler(call) : std::nullopt;
}

void SiteRecorder::OnEvent(host::ControlSite&, const host::EventRecord& event, DISPPARAMS& raised)
{
    events_.push_back(event);
    if (const EventHandler handler = handleEvent_)
        handler(event, raised);
}

void SiteRecorder::OnNotification(host::ControlSite&, const std::wstring& property)
{
    notifications_.push_back(property);
}

void SiteRecorder::OnLoggedError(host::ControlSite&, const host::LoggedError& error)
{
    errors_.push_back(error);
}

host::SiteOptions Recorded(host::SiteOptions options)
{
    options.observer = std::make_shared<SiteRecorder>();
    return options;
}

SiteRecorder& RecordOf(const host::ControlSite& site)
{
    return dynamic_cast<SiteRecorder&>(*site.Options().observer);
}

} // namespace kiv::test
