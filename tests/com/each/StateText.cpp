#include "tests/com/each/StateText.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/EventRecorder.h"
#include "tests/support/PropertyNotifyRecorder.h"
#include "tests/support/Text.h"

#include <algorithm>
#include <sstream>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

std::string NameOf(const std::vector<ControlProperty>& properties, DISPID id)
{
    const auto found = std::ranges::find(properties, id, &ControlProperty::Id);
    return found == properties.end() ? std::to_string(id) : Narrow(found->Name);
}

// A database is the only object that is neither a font nor a picture, and no host sees it change.
bool IsToBePut(const ControlProperty& property)
{
    return property.CanBePut && property.CanBeRead && property.Name != L"Database";
}

// "changed Value, event 2", or the error.
std::string HeardOf(const PublishedClass& control, const ControlProperty& property)
{
    const EasyControl held(Id(control.Class));
    held.InitNew();
    const std::vector<ControlProperty> properties = PropertiesOf(held.Get());
    std::string heard;
    const auto hear = [&](const std::string& what) { heard += (heard.empty() ? "" : ", ") + what; };
    const auto events = MakeCom<EventRecorder>(Id(control.Events));
    events->OnEvent([&](DISPID event, DISPPARAMS&) { hear("event " + std::to_string(event)); });
    const auto changes = MakeCom<PropertyNotifyRecorder>();
    changes->OnChange([&](DISPID id) { hear("changed " + NameOf(properties, id)); });
    const Connection eventConnection(held.Get(), Id(control.Events), events.Get());
    const Connection changeConnection(held.Get(), IID_IPropertyNotifySink, changes.Get());
    const Variant former = GetByName(held.Get(), property.Name.c_str()).Value;
    const auto put = property.Type == VT_DISPATCH ? &PutRefByName : &PutByName;
    const HRESULT result = put(held.Get(), property.Name.c_str(), OtherThan(former, property)).Result;
    changes->TakeChanges();
    if (FAILED(result))
        hear("error " + Hr(result));
    return heard.empty() ? "nothing" : heard;
}

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
    {
        std::erase(line, '\r');
        lines.push_back(line);
    }
    return lines;
}

} // namespace

std::string StateText(const PublishedClass& control, TestPropertyBag* unusual)
{
    std::ostringstream text;
    const EasyControl loaded(Id(control.Class));
    EXPECT_EQ(Hr(Load(loaded.Get(), unusual)), Hr(S_OK));
    Names read = unusual->NamesRead();
    read.erase(std::unique(read.begin(), read.end()), read.end());
    for (const std::wstring& key : read)
        text << "reads " << Narrow(key) << '\n';
    const auto saved = MakeCom<TestPropertyBag>();
    EXPECT_EQ(Hr(Save(loaded.Get(), saved.Get(), false)), Hr(S_OK));
    for (const std::wstring& key : saved->NamesWritten())
        text << "writes " << Narrow(key) << '\n';
    const EasyControl fresh(Id(control.Class));
    fresh.InitNew();
    for (const auto& [name, value] : StateOf(fresh.Get()))
        text << "new " << Narrow(name) << " = " << value << '\n';
    for (const ControlProperty& property : PropertiesOf(fresh.Get()))
        if (IsToBePut(property))
            text << "put " << Narrow(property.Name) << ": " << HeardOf(control, property) << '\n';
    return text.str();
}

std::string LinesLost(const std::string& released, const std::string& current)
{
    std::string lost;
    const std::vector<std::string> present = LinesOf(current);
    auto from = present.begin();
    for (const std::string& line : LinesOf(released))
    {
        const auto found = std::find(from, present.end(), line);
        if (found == present.end())
            lost += line + '\n';
        else
            from = found + 1;
    }
    return lost;
}

} // namespace kiv::test
