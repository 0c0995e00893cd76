#include "host/folio/CheckScript.h"

#include "host/container/Automation.h"
#include "host/container/EventInterface.h"
#include "host/folio/Text.h"
#include "runtime/com/Bstr.h"
#include "runtime/com/TypeDescription.h"

#include <algorithm>

namespace kiv::host
{

namespace
{

struct Event
{
    std::wstring Name;
    bool CanBeRefused = false; // has a Boolean by-reference argument
};

bool IsBooleanByReference(const ELEMDESC& argument)
{
    return argument.tdesc.vt == VT_PTR && argument.tdesc.lptdesc->vt == VT_BOOL;
}

std::vector<Event> EventsOf(const ControlSite& site)
{
    const EventInterface events = FindEventInterface(site.Query<IUnknown>().Get());
    std::vector<Event> all;
    if (!events.Description)
        return all;
    const UINT count = TypeAttributes(events.Description.Get())->cFuncs;
    for (UINT at = 0; at < count; ++at)
    {
        const FunctionDescription function(events.Description.Get(), at);
        Bstr name;
        Check(
            events.Description->GetDocumentation(function->memid, name.Receive(), nullptr, nullptr, nullptr));
        const ELEMDESC* const arguments = function->lprgelemdescParam;
        all.push_back(
            {name.String(), std::any_of(arguments, arguments + function->cParams, &IsBooleanByReference)});
    }
    return all;
}

class Checker
{
public:
    Checker(const Form& form, const ScriptMeans& means) : form_(form), means_(means) {}

    // Throws std::invalid_argument.
    void CheckStep(const ScriptStep& step)
    {
        switch (step.Verb)
        {
        case ScriptVerb::Focus:
        case ScriptVerb::ExpectFocus:
        case ScriptVerb::ExpectSelected:
            return RequireItem(step.Item);
        case ScriptVerb::Click:
        case ScriptVerb::RightClick:
        case ScriptVerb::DoubleClick:
            return CheckClick(step);
        case ScriptVerb::Press:
            isHeld_ = true;
            return CheckClick(step);
        case ScriptVerb::Release:
            Require(isHeld_, "\"release\" without a \"press\" before it");
            isHeld_ = false;
            return;
        case ScriptVerb::ExpectValue:
        case ScriptVerb::Set:
        case ScriptVerb::Call:
            return CheckMember(step);
        case ScriptVerb::ExpectEvent:
        case ScriptVerb::ExpectNoEvent:
        case ScriptVerb::Veto:
            return CheckEvent(step);
        case ScriptVerb::Shot:
            return Require(means_.Shot, "\"shot\" needs --shot, which says where the picture goes");
        case ScriptVerb::CloseDatabase:
            return Require(means_.Database, "there is no database to be closed: --database gives one");
        default:
            return;
        }
    }

private:
    static void Require(bool condition, const std::string& otherwise)
    {
        if (!condition)
            throw std::invalid_argument(otherwise);
    }

    void RequireItem(const std::string& name) const
    {
        Require(form_.Find(Wide(name)) != nullptr, "there is no " + name + " on the form");
    }

    void CheckClick(const ScriptStep& step) const
    {
        if (step.Part == ScriptPart::FormItem)
            RequireItem(step.Item);
    }

    const ControlSite& Site(const std::string& name) const
    {
        const ControlSite* const site = form_.FindSite(Wide(name));
        Require(site != nullptr, "there is no control " + name + " on the form");
        return *site;
    }

    void CheckMember(const ScriptStep& step) const
    {
        Require(Site(step.Item).HasMember(Wide(step.Member)),
                step.Item + " has no " + (step.Verb == ScriptVerb::Call ? "method " : "property ") +
                    step.Member);
    }

    void CheckEvent(const ScriptStep& step) const
    {
        const ControlSite& site = Site(step.Item);
        if (step.Member.empty()) // any
            return;
        const std::vector<Event> events = EventsOf(site);
        const std::wstring wanted = Wide(step.Member);
        const auto event = std::find_if(events.begin(), events.end(),
                                        [&](const Event& each) { return SameName(each.Name, wanted); });
        Require(event != events.end(), step.Item + " has no event " + step.Member);
        Require(step.Verb != ScriptVerb::Veto || event->CanBeRefused,
                "the event " + step.Member + " of " + step.Item + " has no argument that could refuse it");
    }

    const Form& form_;
    const ScriptMeans& means_;
    bool isHeld_ = false;
};

} // namespace

void CheckScript(const Script& script, const Form& form, const ScriptMeans& means)
{
    Checker checker(form, means);
    for (const std::vector<ScriptStep>* steps : {&script.Steps, &script.Answers})
        for (const ScriptStep& step : *steps)
            try
            {
                checker.CheckStep(step);
            }
            catch (const std::invalid_argument& mistake)
            {
                throw FormError(script.File, step.Line, mistake.what());
            }
}

} // namespace kiv::host
