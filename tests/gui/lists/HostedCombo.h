#pragma once

#include "host/container/ControlSite.h"
#include "host/container/Form.h"

#include <KivControls.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kiv::test
{

// A ChkCombo on a form, with an account of what its host hears of it.
class HostedCombo
{
public:
    // What the form's code does in an event.
    using Handler = std::function<void(DISPPARAMS& raised)>;

    HostedCombo(host::Form& form, host::SiteOptions options);

    host::ControlSite& Site() const { return site_; }
    _ChkCombo* operator->() const { return control_.Get(); }
    // Lets go of the control, for tests that take it off the form.
    void LetGo() { control_.Reset(); }

    // Its windows: its own, the combo box, the combo box's list, and the scroll bar that has the focus.
    HWND Window() const { return window_; }
    HWND Combo() const { return combo_; }
    HWND List() const;
    HWND ScrollBar() const { return scrollBar_; }

    // Items "item 0", "item 1" and so on, with those statuses.
    void Fill(const std::vector<long>& statuses);
    void Add(const wchar_t* text, short index = -1);

    short ListIndex() const;
    short PreviousIndex() const;
    short NewIndex() const;
    short ListCount() const;
    std::wstring Text() const;
    std::wstring Item(short index) const;
    // Whether combo box, scroll bar and ListIndex agree on what is selected.
    bool SelectionAgrees() const;
    bool IsOpen() const;
    void Open(bool open);

    // In pixels of the screen: of the closed control, and of an item in the open list.
    POINT Middle() const;
    POINT ItemOnScreen(int index) const;

    // One handler for each event.
    void On(const std::wstring& event, Handler handler) { state_->Handlers[event] = std::move(handler); }

    // The events since the last time, in order: with what is selected and what was before, "Click 2 1", the
    // change of state with its arguments, "ActiveStateChanged 1 0", anything else as its name.
    std::vector<std::wstring> TakeEvents();

private:
    // Outlives what the control raises while it is taken off the form.
    struct State
    {
        _ChkCombo* Control = nullptr;
        std::vector<std::wstring> Events;
        std::map<std::wstring, Handler> Handlers;
    };

    static void Heard(State& state, const host::EventRecord& event, DISPPARAMS& raised);

    std::shared_ptr<State> state_ = std::make_shared<State>();
    host::ControlSite& site_;
    Microsoft::WRL::ComPtr<_ChkCombo> control_;
    HWND window_;
    HWND combo_;
    HWND scrollBar_;
};

} // namespace kiv::test
