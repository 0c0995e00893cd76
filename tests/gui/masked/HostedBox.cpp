#include "tests/gui/masked/HostedBox.h"

#include "runtime/com/Errors.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Library.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <utility>

namespace kiv::test
{

namespace
{

const std::wstring ChangeEvent = L"Change ";

BOOL CALLBACK AddEdit(HWND window, LPARAM edits)
{
    wchar_t name[16] = {};
    GetClassNameW(window, name, ARRAYSIZE(name));
    if (_wcsicmp(name, L"Edit") == 0)
        reinterpret_cast<std::vector<HWND>*>(edits)->push_back(window);
    return TRUE;
}

HWND EditOf(IDispatch* control)
{
    return static_cast<HWND>(LongToHandle(GetByName(control, L"hwnd").Value.Long()));
}

} // namespace

std::ostream& operator<<(std::ostream& out, const BoxLook& look)
{
    return out << '"' << Narrow(look.Text) << "\" from " << look.SelStart << " for " << look.SelLength;
}

std::wstring TextOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

HostedBox::HostedBox(host::Form& form, REFCLSID classId, host::SiteOptions options) :
    site_(form.Add(Library::UnderTest().Create(classId).Get(), std::move(options)))
{
    state_->Control = site_.Control();
    site_.OnEvent([state = state_](const host::EventRecord& event, DISPPARAMS& raised) {
        Heard(*state, event, raised);
    });
}

void HostedBox::Heard(State& state, const host::EventRecord& event, DISPPARAMS& raised)
{
    // What marks the end of the input is no answer.
    if (event.Name == L"KeyUp" && event.Arguments[0].Value.Long() == VK_F24)
        return;
    std::wstring heard = event.Name;
    if (event.Name == L"Change")
        heard = ChangeEvent + TextOf(EditOf(state.Control));
    else if (!event.Arguments.empty())
        heard += L" " + event.Arguments[0].Value.Text();
    state.Events.push_back(heard);
    // Copied: a handler may take the control off the form, and with it what holds the handlers.
    if (const Handler handler = state.Handlers[event.Name])
        handler(event, raised);
}

HWND HostedBox::Edit() const
{
    return EditOf(site_.Control());
}

std::vector<HWND> HostedBox::Edits() const
{
    std::vector<HWND> edits;
    EnumChildWindows(site_.Window(), AddEdit, reinterpret_cast<LPARAM>(&edits));
    return edits;
}

BoxLook HostedBox::Look() const
{
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(Edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {TextOf(Edit()), static_cast<int>(start), static_cast<int>(end - start)};
}

void HostedBox::Show(const BoxLook& look)
{
    SetWindowTextW(Edit(), look.Text.c_str());
    Select(look.SelStart, look.SelLength);
    TakeEvents();
}

void HostedBox::Select(int start, int length)
{
    SendMessageW(Edit(), EM_SETSEL, static_cast<WPARAM>(start), start + length);
}

std::wstring HostedBox::Value() const
{
    const Variant value = site_.Get(L"Value");
    return value.IsNull() ? L"Null" : value.Text();
}

bool HostedBox::IsValidInput(bool showMessage)
{
    return site_.Call(L"IsValidInput", {Variant(showMessage)}).Bool();
}

HRESULT HostedBox::Assign(const Variant& value)
{
    const CallOutcome outcome = PutByName(site_.Control(), L"Value", value);
    return outcome.Result == DISP_E_EXCEPTION ? outcome.ErrorCode : outcome.Result;
}

std::vector<std::wstring> HostedBox::TakeEvents()
{
    return std::exchange(state_->Events, {});
}

std::vector<std::wstring> HostedBox::TakeChanges()
{
    std::vector<std::wstring> changes;
    for (const std::wstring& event : TakeEvents())
    {
        if (event.starts_with(ChangeEvent))
            changes.push_back(event.substr(ChangeEvent.size()));
    }
    return changes;
}

} // namespace kiv::test
