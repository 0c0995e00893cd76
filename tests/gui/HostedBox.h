#pragma once

#include "host/container/ControlSite.h"
#include "host/container/Form.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kiv::test
{

// What the user sees in a box.
struct BoxLook
{
    std::wstring Text;
    int SelStart = 0;
    int SelLength = 0;

    bool operator==(const BoxLook& other) const = default;
    friend std::ostream& operator<<(std::ostream& out, const BoxLook& look);
};

// A control with a text box, on a form, with an account of what its host hears of it.
class HostedBox
{
public:
    // What the form's code does in an event.
    using Handler = std::function<void(const host::EventRecord& event, DISPPARAMS& raised)>;

    HostedBox(host::Form& form, REFCLSID classId, host::SiteOptions options);

    host::ControlSite& Site() const { return site_; }
    // The text box in use: the one that the control says, or its only one.
    HWND Edit() const;
    // All of the control's text boxes.
    std::vector<HWND> Edits() const;

    BoxLook Look() const;
    std::wstring Text() const { return Look().Text; }
    // Puts the box into a state, untold.
    void Show(const BoxLook& look);
    void Select(int start, int length);

    void SetStyle(long style) { site_.Put(L"Style", Variant(style)); }
    // The control's value: "Null", or the text.
    std::wstring Value() const;
    bool IsValidInput(bool showMessage = false);
    // Asks with a message, and holds the answer to be this one: none for a valid entry.
    void ExpectComplaint(const std::wstring& message);
    // The run-time error that assigning to Value ends with, or S_OK.
    HRESULT Assign(const Variant& value);

    // One handler for each event.
    void On(const std::wstring& event, Handler handler) { state_->Handlers[event] = std::move(handler); }

    // The events since the last time, in order: a key event as "KeyPress 49", a change as what the box then
    // shows, "Change 1__-__-____", anything else as its name.
    std::vector<std::wstring> TakeEvents();
    // The texts of the changes alone.
    std::vector<std::wstring> TakeChanges();

private:
    // Outlives what the control raises while it is taken off the form.
    struct State
    {
        IDispatch* Control = nullptr;
        std::vector<std::wstring> Events;
        std::map<std::wstring, Handler> Handlers;
    };

    static void Heard(State& state, const host::EventRecord& event, DISPPARAMS& raised);

    std::shared_ptr<State> state_ = std::make_shared<State>();
    host::ControlSite& site_;
};

std::wstring TextOf(HWND window);

} // namespace kiv::test
