#pragma once

#include "host/container/ControlSite.h"
#include "host/container/Form.h"
#include "tests/support/Pixels.h"

#include <functional>
#include <memory>
#include <string>

namespace kiv::test
{

// What decides how a PicCommand looks.
struct ButtonLook
{
    SIZE Size = {};
    long PictureType = 0;
    long DetailStatus = 0;
    std::string Caption;
    HFONT Font = nullptr;
    bool Enabled = true;
    bool Focused = false;
    bool Pressed = false;
};

// The picture of such a button, painted independently of the control.
Pixels PaintPicCommand(const ButtonLook& look);

// A PicCommand on a form, with an account of its clicks.
class HostedButton
{
public:
    using Handler = std::function<void()>;

    HostedButton(host::Form& form, host::SiteOptions options);

    host::ControlSite& Site() const { return site_; }
    HWND Window() const { return site_.Window(); }
    // The button inside.
    HWND Button() const { return GetWindow(Window(), GW_CHILD); }
    POINT Middle() const; // on the screen

    void Put(const wchar_t* property, long value) { site_.Put(property, Variant(value)); }
    void SetCaption(const wchar_t* caption) { site_.Put(L"Caption", Variant(caption)); }
    void SetEnabled(bool enabled) { site_.Put(L"Enabled", Variant(enabled)); }

    // As its properties say, with the focus where it is.
    ButtonLook Look() const;
    Pixels Shown() const { return PixelsOfWindow(Button()); }

    void OnClick(Handler handler) { state_->OnClick = std::move(handler); }
    // Since the last time.
    int TakeClicks() { return std::exchange(state_->Clicks, 0); }

private:
    // Outlives what the control raises while it is taken off the form.
    struct State
    {
        int Clicks = 0;
        Handler OnClick;
    };

    std::shared_ptr<State> state_ = std::make_shared<State>();
    host::ControlSite& site_;
};

} // namespace kiv::test
