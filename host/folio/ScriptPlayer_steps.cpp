// What each step of a script does, on the player's own thread.

#include "host/folio/Input.h"
#include "host/folio/ScriptPlayer.h"
#include "host/folio/Text.h"
#include "host/folio/Values.h"
#include "runtime/com/Errors.h"

namespace kiv::host
{

namespace
{

// Distance of a click "left" or "right" from that edge.
constexpr int EdgeDistance = 7;

bool IsGone(HWND window)
{
    return !IsWindow(window);
}

HWND ButtonOf(HWND box, const std::wstring& caption)
{
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
    {
        wchar_t kind[16] = {};
        wchar_t text[64] = {};
        GetClassNameW(child, kind, static_cast<int>(std::size(kind)));
        GetWindowTextW(child, text, static_cast<int>(std::size(text)));
        std::wstring plain(text);
        std::erase(plain, L'&');
        if (lstrcmpiW(kind, L"Button") == 0 && IsWindowVisible(child) &&
            (caption.empty() || lstrcmpiW(plain.c_str(), caption.c_str()) == 0))
            return child;
    }
    return nullptr;
}

POINT MiddleOf(HWND window)
{
    RECT bounds = {};
    GetWindowRect(window, &bounds);
    return {(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
}

bool IsOwn(HWND window)
{
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId();
}

// The index of a member that has one for each item; none for other members.
std::vector<Variant> IndexOf(const ScriptStep& step)
{
    std::vector<Variant> index;
    if (step.Index)
        index.push_back(ToVariant(*step.Index));
    return index;
}

} // namespace

// Input goes to whatever is there; that must not be somebody else's window.
void ScriptPlayer::AwaitKeyboard() const
{
    if (!Until([] { return IsOwn(GetForegroundWindow()); }))
        throw Failure{"the keyboard is with another program's window"};
}

void ScriptPlayer::Press(const KeyChord& key) const
{
    AwaitKeyboard();
    SendKey(key);
    Settle();
}

void ScriptPlayer::Type(wchar_t character) const
{
    AwaitKeyboard();
    SendCharacter(character);
    Settle();
}

POINT ScriptPlayer::Reachable(POINT screen) const
{
    if (!IsOwn(WindowFromPoint(screen)))
        throw Failure{"another program's window covers the place to click"};
    return screen;
}

void ScriptPlayer::ClickAt(POINT screen, MouseButton button) const
{
    SendClick(Reachable(screen), button);
}

ControlSite& ScriptPlayer::Site(const std::string& name) const
{
    if (ControlSite* const site = form_.FindSite(Wide(name)))
        return *site;
    throw Failure{"there is no control " + name + " on the form"};
}

void ScriptPlayer::PlayStep(const ScriptStep& step)
{
    switch (step.Verb)
    {
    case ScriptVerb::Focus:
        return MoveFocus(step);
    case ScriptVerb::Keys:
        for (const KeyChord& key : step.Keys)
            Press(key);
        return;
    case ScriptVerb::Type:
        for (const wchar_t character : Wide(step.Text))
            Type(character);
        return;
    case ScriptVerb::Clipboard:
        return PutOnClipboard(Wide(step.Text));
    case ScriptVerb::Click:
    case ScriptVerb::RightClick:
    case ScriptVerb::DoubleClick:
    case ScriptVerb::Press:
        return Click(step);
    case ScriptVerb::Release:
        SendRelease();
        return Settle();
    case ScriptVerb::ExpectValue:
        return ExpectValue(step);
    case ScriptVerb::ExpectFocus:
        return ExpectItem(step.Item, "the focus", &Form::FocusedItem);
    case ScriptVerb::ExpectSelected:
        return ExpectItem(step.Item, "the selection", &Form::Selected);
    case ScriptVerb::ExpectEvent:
        if (!Until([&] { return journal_.TakeEvent(Wide(step.Item), Wide(step.Member)); }))
            throw Failure{"expected the event " + step.Member + " of " + step.Item + ", got none"};
        return;
    case ScriptVerb::ExpectNoEvent:
        Settle();
        return OnForm([&] {
            if (journal_.HasEvent(Wide(step.Item), Wide(step.Member)))
                throw Failure{"expected no event " + step.Member + (step.Member.empty() ? "of " : " of ") +
                              step.Item + ", got one"};
        });
    case ScriptVerb::AnswerMessageBox:
        return AnswerMessageBox(step);
    case ScriptVerb::ExpectWindow:
    case ScriptVerb::ExpectNoWindow:
        return ExpectWindow(step);
    case ScriptVerb::ExpectListItem:
    case ScriptVerb::ExpectNoListItem:
        return ExpectListItem(step);
    case ScriptVerb::Shot:
        return TakePicture();
    case ScriptVerb::CloseDatabase:
        return CloseDatabase();
    case ScriptVerb::Veto:
        return OnForm([&] {
            Site(step.Item);
            journal_.Veto(Wide(step.Item), Wide(step.Member));
        });
    case ScriptVerb::Set:
        return Set(step);
    case ScriptVerb::Call:
        return Call(step);
    case ScriptVerb::Close: {
        KeyChord altF4;
        altF4.Alt = true;
        altF4.VirtualKey = VK_F4;
        return Press(altF4);
    }
    }
}

// By Tab, as a person without a mouse would get there.
void ScriptPlayer::MoveFocus(const ScriptStep& step)
{
    std::size_t tabs = 0;
    OnForm([&] {
        if (!form_.Find(Wide(step.Item)))
            throw Failure{"there is no " + step.Item + " on the form"};
        tabs = form_.Items().size();
    });
    KeyChord tab;
    tab.VirtualKey = VK_TAB;
    for (; tabs > 0; --tabs)
    {
        bool there = false;
        OnForm([&] {
            const FormItem* const item = form_.FocusedItem();
            there = item && item == form_.Find(Wide(step.Item));
        });
        if (there)
            return;
        Press(tab);
    }
    ExpectItem(step.Item, "the focus", &Form::FocusedItem);
}

POINT ScriptPlayer::PointIn(const ScriptStep& step) const
{
    const FormItem* const item = form_.Find(Wide(step.Item));
    if (!item)
        throw Failure{"there is no " + step.Item + " on the form"};
    // As it is seen: left is left on a mirrored form, too.
    RECT bounds = item->Bounds();
    MapWindowPoints(form_.Page(), nullptr, reinterpret_cast<POINT*>(&bounds), 2);
    POINT point = {(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
    switch (step.Spot.Where)
    {
    case ScriptSpot::Place::Left:
        point.x = bounds.left + EdgeDistance;
        break;
    case ScriptSpot::Place::Right:
        point.x = bounds.right - 1 - EdgeDistance;
        break;
    case ScriptSpot::Place::Point:
        point = {bounds.left + step.Spot.X, bounds.top + step.Spot.Y};
        break;
    case ScriptSpot::Place::Middle:
        break;
    }
    return point;
}

void ScriptPlayer::Click(const ScriptStep& step)
{
    POINT point = {};
    OnForm([&] { point = step.Part == ScriptPart::FormItem ? PointIn(step) : PointInFront(step); });
    if (step.Verb == ScriptVerb::Press)
        SendPress(Reachable(point));
    else
        ClickAt(point, step.Verb == ScriptVerb::RightClick ? MouseButton::Right : MouseButton::Left);
    if (step.Verb == ScriptVerb::DoubleClick)
        ClickAt(point, MouseButton::Left);
    Settle();
}

void ScriptPlayer::AnswerMessageBox(const ScriptStep& step)
{
    HWND box = nullptr;
    const bool shown = Until([&] {
        const ShownMessageBox* const current = boxes_.Current();
        box = current ? current->Window : nullptr;
        return box && IsWindowVisible(box);
    });
    if (!shown)
        throw Failure{"expected a message box, got none"};
    std::string text;
    POINT point = {};
    OnForm([&] {
        if (const ShownMessageBox* const current = boxes_.Current())
            text = Utf8(current->Text);
        if (const HWND button = ButtonOf(box, Wide(step.Member)))
            point = MiddleOf(button);
        else
            throw Failure{"the message box has no button " + step.Member};
    });
    // Answered in any case: nothing else can be done while it is open.
    ClickAt(point, MouseButton::Left);
    if (!Until([box] { return IsGone(box); }))
        throw Failure{"the message box stays open"};
    if (text != step.Text)
        throw Failure{"expected the message " + QuoteFormText(step.Text) + ", got " + QuoteFormText(text)};
    Settle();
}

void ScriptPlayer::Set(const ScriptStep& step)
{
    OnForm([&] {
        const ScriptValue& value = step.Values.front();
        Site(step.Item).Put(Wide(step.Member), value ? ToVariant(*value) : Variant::Null(), IndexOf(step));
    });
}

// Posted, since the method may open a window that waits for the user. Done when the method has returned or
// such a window is there.
void ScriptPlayer::Call(const ScriptStep& step)
{
    OnForm([&] {
        Site(step.Item);
        calling_ = true;
        failedCall_.clear();
    });
    form_.Post([this, step] {
        std::vector<Variant> arguments;
        for (const ScriptValue& value : step.Values)
            arguments.push_back(value ? ToVariant(*value) : Variant::Null());
        try
        {
            Site(step.Item).Call(Wide(step.Member), arguments);
        }
        catch (const ComError& error)
        {
            failedCall_ = WhyFailed(step, error);
        }
        catch (const Failure& failure)
        {
            failedCall_ = failure.What;
        }
        calling_ = false;
    });
    if (!Until([&] { return !calling_ || boxes_.Current() || !IsWindowEnabled(form_.Window()); }))
        throw Failure{step.Item + "." + step.Member + " does not return"};
    OnForm([&] {
        if (!failedCall_.empty())
            throw Failure{failedCall_};
    });
}

void ScriptPlayer::ExpectValue(const ScriptStep& step)
{
    const ScriptValue& expected = step.Values.front();
    std::string got;
    const bool came = Until([&] {
        const Variant value = Site(step.Item).Call(Wide(step.Member), IndexOf(step));
        got = Describe(value);
        return Matches(value, expected);
    });
    if (!came)
        throw Failure{"expected " + step.Item + "." + step.Member + " = " + FormatScriptValue(expected) +
                      ", got " + got};
}

void ScriptPlayer::ExpectItem(const std::string& name, const char* what, FormItem* (Form::*current)() const)
{
    std::string got;
    const bool came = Until([&] {
        const FormItem* const item = (form_.*current)();
        got = item ? Utf8(item->Name()) : "nothing";
        return item && item == form_.Find(Wide(name));
    });
    if (!came)
        throw Failure{std::string("expected ") + what + " on " + name + ", got " + got};
}

} // namespace kiv::host
