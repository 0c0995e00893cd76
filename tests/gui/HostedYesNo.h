#pragma once

#include "host/container/ControlSite.h"
#include "host/container/Form.h"
#include "tests/gui/SiteRecorder.h"
#include "tests/gui/YesNoReference.h"

#include <KivControls.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kiv::test
{

// A place on a YesNo, in words.
enum class Spot
{
    YesImage,
    YesLastColumn, // x = YesRight, which still is Yes
    BesideYes,     // one to the right of it
    Middle,
    BesideNo, // one to the left of NoLeft
    NoFirstColumn,
    NoCaption,
    LastColumn,
    RightBound, // x = width, one past the last pixel and still inside
    BeyondRight,
    BottomBound, // on Yes, y = height
    BelowBottom,
    LeftOf,
    Above
};

// A YesNo on a form, with an account of what it tells its host.
class HostedYesNo
{
public:
    // What the form's code does in an event.
    using Handler = std::function<void()>;

    explicit HostedYesNo(host::Form& form, host::SiteOptions options = {});

    host::ControlSite& Site() const { return site_; }
    Microsoft::WRL::ComPtr<_YesNo> Control() const { return site_.Query<_YesNo>(); }
    HWND Window() const { return site_.Window(); }
    SIZE Size() const;

    long Value() const;
    void SetValue(long value);
    // "Null", or the text.
    std::string Text() const;
    void SetText(const Variant& text);
    HFONT Font() const;

    // What it is to look like in its present state.
    YesNoLook Look() const;
    // Where the focus rectangle shows; holds the whole picture against the control's state.
    std::string FocusShown() const { return FocusOn(PixelsOfWindow(Window()), Look()); }

    POINT PlaceOf(Spot spot) const; // in its window
    POINT OnScreen(Spot spot) const;

    void OnClick(Handler handler) { state_->WhenClicked = std::move(handler); }
    void OnChange(Handler handler) { state_->WhenChanged = std::move(handler); }
    void CancelClicks() { state_->Cancel = true; }

    // All that the host heard since the last time, in order: an event as "Click 1", with the value that it
    // read in the handler, and a property's notification as its name.
    std::string TakeTrace();
    // All of it: value, text, where the focus rectangle shows, and the trace when there is one, as
    // "1 Y @Yes | Click 1, Value, Text, Change 1".
    std::string TakeOutcome();

private:
    // Outlives what the control raises while it is taken off the form.
    struct State : SiteRecorder
    {
        void OnEvent(host::ControlSite& site, const host::EventRecord& event, DISPPARAMS& raised) override;
        void OnNotification(host::ControlSite& site, const std::wstring& property) override;

        _YesNo* Control = nullptr; // null while it is made
        std::vector<std::string> Trace;
        Handler WhenClicked;
        Handler WhenChanged;
        bool Cancel = false;
    };

    static host::SiteOptions Listening(host::SiteOptions options, const std::shared_ptr<State>& state);

    std::shared_ptr<State> state_ = std::make_shared<State>();
    host::ControlSite& site_;
};

} // namespace kiv::test
