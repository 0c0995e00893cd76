#include "tests/gui/HostedYesNo.h"

#include "runtime/com/Errors.h"
#include "tests/support/Library.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

COLORREF Resolve(OLE_COLOR color)
{
    constexpr OLE_COLOR systemColor = 0x80000000;
    return color & systemColor ? GetSysColor(static_cast<int>(color & 0xFF)) : color;
}

} // namespace

HostedYesNo::HostedYesNo(host::Form& form, host::SiteOptions options) :
    site_(form.Add(Library::UnderTest().Create(CLSID_YesNo).Get(), Listening(std::move(options), state_)))
{
    state_->Control = Control().Get();
    TakeTrace();
}

host::SiteOptions HostedYesNo::Listening(host::SiteOptions options, const std::shared_ptr<State>& state)
{
    options.observer = state;
    return options;
}

void HostedYesNo::State::OnNotification(host::ControlSite& site, const std::wstring& property)
{
    SiteRecorder::OnNotification(site, property);
    Trace.push_back(Narrow(property));
}

void HostedYesNo::State::OnEvent(host::ControlSite& site, const host::EventRecord& event, DISPPARAMS& raised)
{
    SiteRecorder::OnEvent(site, event, raised);
    if (!Control)
        return;
    AnswerEnums value = Neither;
    EXPECT_HRESULT_SUCCEEDED(Control->get_Value(&value));
    Trace.push_back(Narrow(event.Name) + " " + std::to_string(static_cast<long>(value)));
    const bool isClick = event.Name == L"Click";
    // Copied: a handler may take the control off the form, and with it what holds the handlers.
    if (const Handler handler = isClick ? WhenClicked : WhenChanged)
        handler();
    if (isClick && Cancel)
    {
        EXPECT_TRUE(host::Return(event, raised, L"Cancel", Variant(true)));
    }
}

SIZE HostedYesNo::Size() const
{
    RECT inner = {};
    GetClientRect(Window(), &inner);
    return {inner.right, inner.bottom};
}

long HostedYesNo::Value() const
{
    AnswerEnums value = Neither;
    EXPECT_HRESULT_SUCCEEDED(Control()->get_Value(&value));
    return value;
}

void HostedYesNo::SetValue(long value)
{
    EXPECT_HRESULT_SUCCEEDED(Control()->put_Value(static_cast<AnswerEnums>(value)));
}

std::string HostedYesNo::Text() const
{
    Variant text;
    EXPECT_HRESULT_SUCCEEDED(Control()->get_Text(text.Receive()));
    return text.IsNull() ? "Null" : Narrow(text.Text());
}

void HostedYesNo::SetText(const Variant& text)
{
    EXPECT_HRESULT_SUCCEEDED(Control()->put_Text(text.Get()));
}

HFONT HostedYesNo::Font() const
{
    ComPtr<IFontDisp> object;
    ComPtr<IFont> font;
    HFONT handle = nullptr;
    EXPECT_HRESULT_SUCCEEDED(Control()->get_Font(&object));
    EXPECT_HRESULT_SUCCEEDED(object.As(&font));
    EXPECT_HRESULT_SUCCEEDED(font->get_hFont(&handle));
    return handle;
}

YesNoLook HostedYesNo::Look() const
{
    const ComPtr<_YesNo> control = Control();
    OLE_COLOR back = 0;
    OLE_COLOR fore = 0;
    VARIANT_BOOL enabled = VARIANT_FALSE;
    EXPECT_HRESULT_SUCCEEDED(control->get_BackColor(&back));
    EXPECT_HRESULT_SUCCEEDED(control->get_ForeColor(&fore));
    EXPECT_HRESULT_SUCCEEDED(control->get_Enabled(&enabled));
    return {Size(), Value(), enabled != VARIANT_FALSE, Resolve(back), Resolve(fore), Font()};
}

POINT HostedYesNo::PlaceOf(Spot spot) const
{
    const YesNoRegions regions = RegionsOf(Look());
    const SIZE size = Size();
    const LONG middle = size.cy / 2;
    switch (spot)
    {
    case Spot::YesImage:
        return {4, middle};
    case Spot::YesLastColumn:
        return {regions.YesRight, middle};
    case Spot::BesideYes:
        return {regions.YesRight + 1, middle};
    case Spot::Middle:
        return {(regions.YesRight + regions.NoLeft) / 2, middle};
    case Spot::BesideNo:
        return {regions.NoLeft - 1, middle};
    case Spot::NoFirstColumn:
        return {regions.NoLeft, middle};
    case Spot::NoCaption:
        return {size.cx - 8, middle};
    case Spot::LastColumn:
        return {size.cx - 1, middle};
    case Spot::RightBound:
        return {size.cx, middle};
    case Spot::BeyondRight:
        return {size.cx + 1, middle};
    case Spot::BottomBound:
        return {4, size.cy};
    case Spot::BelowBottom:
        return {4, size.cy + 1};
    case Spot::LeftOf:
        return {-1, middle};
    case Spot::Above:
        return {4, -1};
    }
    return {};
}

POINT HostedYesNo::OnScreen(Spot spot) const
{
    POINT place = PlaceOf(spot);
    ClientToScreen(Window(), &place);
    return place;
}

std::string HostedYesNo::TakeTrace()
{
    std::string trace;
    for (const std::string& entry : state_->Trace)
        trace += (trace.empty() ? "" : ", ") + entry;
    state_->Trace.clear();
    state_->ClearNotifications();
    return trace;
}

std::string HostedYesNo::TakeOutcome()
{
    const std::string state = std::to_string(Value()) + " " + Text() + " @" + FocusShown();
    const std::string trace = TakeTrace();
    return trace.empty() ? state : state + " | " + trace;
}

} // namespace kiv::test
