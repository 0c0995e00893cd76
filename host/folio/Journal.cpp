#include "host/folio/Journal.h"

#include "host/container/Automation.h"
#include "host/folio/Json.h"
#include "host/folio/Members.h"
#include "host/folio/Text.h"

#include <algorithm>
#include <cstdio>

namespace kiv::host
{

Journal::Journal(const std::filesystem::path& file, bool forScript) : forScript_(forScript)
{
    if (!file.empty())
        file_.emplace(file);
}

void Journal::WriteLine(const std::string& line)
{
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
    if (file_)
        file_->WriteLine(line);
}

void Journal::Finish()
{
    if (file_)
        file_->Finish();
}

void Journal::OnEvent(ControlSite& site, const EventRecord& event, DISPPARAMS& raised)
{
    JsonObject arguments;
    for (const EventArgument& argument : event.Arguments)
        arguments.Add(Utf8(argument.Name), argument.Value);
    JsonObject line;
    line.Add("control", site.Name()).Add("event", event.Name).Add("args", arguments);
    if (const std::optional<Variant> value = TryGet(site, L"Value"))
        line.Add("value", *value);
    if (forScript_)
        untaken_.push_back({site.Name(), event.Name});
    if (const EventArgument* refused = Refuse(site.Name(), event, raised))
        line.Add("returned", JsonObject().Add(Utf8(refused->Name), Variant(true)));
    WriteLine(line.Text());
}

const EventArgument* Journal::Refuse(const std::wstring& control, const EventRecord& event,
                                     DISPPARAMS& raised)
{
    const auto veto = std::find_if(vetoes_.begin(), vetoes_.end(), [&](const NamedEvent& each) {
        return SameName(each.Control, control) && SameName(each.Event, event.Name);
    });
    if (veto == vetoes_.end())
        return nullptr;
    vetoes_.erase(veto);
    for (const EventArgument& argument : event.Arguments)
        if (argument.Value.Type() == VT_BOOL && Return(event, raised, argument.Name, Variant(true)))
            return &argument;
    return nullptr;
}

void Journal::Write(const ShownMessageBox& box)
{
    JsonObject content;
    content.Add("caption", box.Caption)
        .Add("text", box.Text)
        .Add("flags", Variant(static_cast<long>(box.Flags)));
    WriteLine(JsonObject().Add("messageBox", content).Text());
}

void Journal::WriteAnswer(const ControlSite& site)
{
    for (const wchar_t* property : {L"Value", L"Text", L"EnumCode"})
        if (const std::optional<Variant> answer = TryGet(site, property))
            WriteLine(JsonObject()
                          .Add("control", site.Name())
                          .Add("property", std::wstring_view(property))
                          .Add("value", *answer)
                          .Text());
}

void Journal::WriteClosing(std::wstring_view button)
{
    WriteLine(JsonObject().Add("closedBy", button).Text());
}

void Journal::Veto(std::wstring_view control, std::wstring_view event)
{
    vetoes_.push_back({std::wstring(control), std::wstring(event)});
}

std::vector<Journal::NamedEvent>::const_iterator Journal::FindEvent(std::wstring_view control,
                                                                    std::wstring_view event) const
{
    return std::find_if(untaken_.begin(), untaken_.end(), [&](const NamedEvent& each) {
        return SameName(each.Control, control) && (event.empty() || SameName(each.Event, event));
    });
}

bool Journal::HasEvent(std::wstring_view control, std::wstring_view event) const
{
    return FindEvent(control, event) != untaken_.end();
}

bool Journal::TakeEvent(std::wstring_view control, std::wstring_view event)
{
    const auto found = FindEvent(control, event);
    if (found == untaken_.end())
        return false;
    const auto place = untaken_.begin() + (found - untaken_.cbegin());
    const auto kept = std::stable_partition(untaken_.begin(), place + 1, [&](const NamedEvent& each) {
        return !SameName(each.Control, control);
    });
    untaken_.erase(kept, place + 1);
    return true;
}

} // namespace kiv::host
