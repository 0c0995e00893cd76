#include "tests/gui/lists/HostedCombo.h"

#include "tests/gui/SiteRecorder.h"
#include "tests/support/Library.h"

#include <gtest/gtest.h>

#include <utility>

namespace kiv::test
{

namespace
{

std::wstring Received(Bstr text)
{
    return text.String();
}

} // namespace

HostedCombo::HostedCombo(host::Form& form, host::SiteOptions options) :
    site_(form.Add(Library::UnderTest().Create(CLSID_ChkCombo).Get(), Recorded(std::move(options)))),
    control_(site_.Query<_ChkCombo>())
{
    LONG combo = 0;
    EXPECT_HRESULT_SUCCEEDED(control_->get_hwnd(&combo));
    combo_ = static_cast<HWND>(LongToHandle(combo));
    window_ = GetParent(combo_);
    scrollBar_ = FindWindowExW(window_, nullptr, L"ScrollBar", nullptr);
    state_->Control = control_.Get();
    RecordOf(site_).HandleEvents([state = state_](const host::EventRecord& event, DISPPARAMS& raised) {
        Heard(*state, event, raised);
    });
}

void HostedCombo::Heard(State& state, const host::EventRecord& event, DISPPARAMS& raised)
{
    std::wstring heard = event.Name;
    if (event.Name == L"Click")
    {
        short selected = 0;
        short previous = 0;
        state.Control->get_ListIndex(&selected);
        state.Control->get_PreviousIndex(&previous);
        heard += L" " + std::to_wstring(selected) + L" " + std::to_wstring(previous);
    }
    for (const auto& argument : event.Arguments)
        heard += argument.Value.Bool() ? L" 1" : L" 0";
    state.Events.push_back(heard);
    // Copied: a handler may take the control off the form, and with it what holds the handlers.
    if (const Handler handler = state.Handlers[event.Name])
        handler(raised);
}

HWND HostedCombo::List() const
{
    COMBOBOXINFO information = {};
    information.cbSize = sizeof information;
    return GetComboBoxInfo(combo_, &information) ? information.hwndList : nullptr;
}

void HostedCombo::Fill(const std::vector<long>& statuses)
{
    for (const long status : statuses)
    {
        const short index = ListCount();
        Add((L"item " + std::to_wstring(index)).c_str());
        EXPECT_HRESULT_SUCCEEDED(
            control_->put_ListCompletionStatus(index, static_cast<DetailStatusEnums>(status)));
    }
}

void HostedCombo::Add(const wchar_t* text, short index)
{
    EXPECT_HRESULT_SUCCEEDED(control_->AddItem(Bstr(text).Get(), index));
}

short HostedCombo::ListIndex() const
{
    short result = 0;
    EXPECT_HRESULT_SUCCEEDED(control_->get_ListIndex(&result));
    return result;
}

short HostedCombo::PreviousIndex() const
{
    short result = 0;
    EXPECT_HRESULT_SUCCEEDED(control_->get_PreviousIndex(&result));
    return result;
}

short HostedCombo::NewIndex() const
{
    short result = 0;
    EXPECT_HRESULT_SUCCEEDED(control_->get_NewIndex(&result));
    return result;
}

short HostedCombo::ListCount() const
{
    short result = 0;
    EXPECT_HRESULT_SUCCEEDED(control_->get_ListCount(&result));
    return result;
}

std::wstring HostedCombo::Text() const
{
    Bstr text;
    EXPECT_HRESULT_SUCCEEDED(control_->get_Text(text.Receive()));
    return Received(std::move(text));
}

std::wstring HostedCombo::Item(short index) const
{
    Bstr text;
    EXPECT_HRESULT_SUCCEEDED(control_->get_List(index, text.Receive()));
    return Received(std::move(text));
}

bool HostedCombo::SelectionAgrees() const
{
    const auto inCombo = static_cast<short>(SendMessageW(combo_, CB_GETCURSEL, 0, 0));
    SCROLLINFO bar = {};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_POS;
    SendMessageW(scrollBar_, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(&bar));
    return inCombo == ListIndex() && bar.nPos == inCombo;
}

bool HostedCombo::IsOpen() const
{
    return SendMessageW(combo_, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void HostedCombo::Open(bool open)
{
    SendMessageW(combo_, CB_SHOWDROPDOWN, open, 0);
}

POINT HostedCombo::Middle() const
{
    RECT place = {};
    GetWindowRect(combo_, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

POINT HostedCombo::ItemOnScreen(int index) const
{
    RECT place = {};
    SendMessageW(List(), LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    ClientToScreen(List(), &middle);
    return middle;
}

std::vector<std::wstring> HostedCombo::TakeEvents()
{
    return std::exchange(state_->Events, {});
}

} // namespace kiv::test
