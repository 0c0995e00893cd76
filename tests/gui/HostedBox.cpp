#include "tests/gui/HostedBox.h"

#include "runtime/com/Errors.h"
#include "tests/gui/SiteRecorder.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Library.h"
#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/Text.h"
#include "tests/support/WindowClass.h"

#include <gtest/gtest.h>

#include <utility>

namespace kiv::test
{

namespace
{

const std::wstring ChangeEvent = L"Change ";

BOOL CALLBACK AddEdit(HWND window, LPARAM edits)
{
    if (IsOfClass(window, "Edit"))
        reinterpret_cast<std::vector<HWND>*>(edits)->push_back(window);
    return TRUE;
}

std::vector<HWND> EditsIn(HWND window)
{
    std::vector<HWND> edits;
    EnumChildWindows(window, AddEdit, reinterpret_cast<LPARAM>(&edits));
    return edits;
}

// Some controls hand out the window of their text box, some their own, some none.
HWND EditOf(IDispatch* control)
{
    const CallOutcome outcome = GetByName(control, L"hwnd");
    if (SUCCEEDED(outcome.Result))
    {
        const auto window = static_cast<HWND>(LongToHandle(outcome.Value.Long()));
        if (IsOfClass(window, "Edit"))
            return window;
    }
    Microsoft::WRL::ComPtr<IOleWindow> object;
    HWND window = nullptr;
    if (FAILED(control->QueryInterface(IID_PPV_ARGS(&object))) || FAILED(object->GetWindow(&window)))
        return nullptr;
    const std::vector<HWND> edits = EditsIn(window);
    return edits.empty() ? nullptr : edits.front();
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
    site_(form.Add(Library::UnderTest().Create(classId).Get(), Recorded(std::move(options))))
{
    state_->Control = site_.Control();
    RecordOf(site_).HandleEvents([state = state_](const host::EventRecord& event, DISPPARAMS& raised) {
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
    return EditsIn(site_.Window());
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

void HostedBox::ExpectComplaint(const std::wstring& message)
{
    Select(1, 0);
    const std::wstring before = Text();
    MessageBoxWatcher watcher;
    EXPECT_EQ(IsValidInput(true), message.empty());
    const std::vector<ShownMessageBox> shown = watcher.Stop();
    ASSERT_EQ(shown.size(), message.empty() ? 0U : 1U);
    if (message.empty())
        return;
    EXPECT_EQ(shown[0].Text, message);
    EXPECT_EQ(shown[0].Caption, L"Host of the control tests");
    EXPECT_EQ(shown[0].Buttons, std::vector<std::wstring>{L"OK"});
    EXPECT_EQ(shown[0].Icon, LoadIconA(nullptr, IDI_EXCLAMATION));
    EXPECT_EQ(Look(), (BoxLook{before, 0, static_cast<int>(before.size())})) << "all is selected";
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
