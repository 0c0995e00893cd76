#include "controls/choice/YesNo.h"

#include "resources/ResourceIds.h"
#include "runtime/com/LateBound.h"
#include "runtime/drawing/Color.h"
#include "runtime/drawing/MirroredDc.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

constexpr wchar_t YesCaption[] = L"Yes";
constexpr wchar_t NoCaption[] = L"No";
constexpr UINT CaptionFormat = DT_RIGHT | DT_VCENTER | DT_SINGLELINE;

// Equality as hosts know it from their own language: text against text, letter for letter. Null, and what is
// no text at all, equals nothing.
bool EqualAsText(const Variant& one, const Variant& other)
{
    const std::optional<Variant> first = one.As(VT_BSTR);
    const std::optional<Variant> second = other.As(VT_BSTR);
    return first && second && Identical(*first, *second);
}

} // namespace

const ControlClass YesNo::Class = {
    CLSID_YesNo,          __uuidof(_YesNo),  __uuidof(__YesNo), L"YesNo",
    L"KivControls.YesNo", KIV_TOOLBOX_YESNO, {1800, 300},
};

YesNo::YesNo(IUnknown* outer) : YesNoMembers(Class, outer) {}

void* YesNo::FindInterface(REFIID iid) noexcept
{
    if (iid == __uuidof(ISubClass))
        return static_cast<ISubClass*>(&subClass_);
    return YesNoMembers::FindInterface(iid);
}

struct YesNo::Properties
{
    static constexpr PropertyTable Table{
        Property<L"BackColor">([](auto& control) { return control.TheSurface().BackColor(); },
                               [](auto& control, OLE_COLOR color) { control.TheSurface().BackColor(color); },
                               SystemColor(COLOR_BTNFACE))
            .LetBy([](auto& control, OLE_COLOR color) { control.BackColor(color); }),
        Property<L"ForeColor">([](auto& control) { return control.TheSurface().ForeColor(); },
                               [](auto& control, OLE_COLOR color) { control.TheSurface().ForeColor(color); },
                               SystemColor(COLOR_BTNTEXT))
            .LetBy([](auto& control, OLE_COLOR color) { control.ForeColor(color); }),
        // Read without EnableWindow.
        Property<L"Enabled">([](auto& control) { return control.TheSurface().Enabled(); },
                             [](auto& control, bool state) { control.TheSurface().Enabled(state); }, true)
            .LetBy([](auto& control, bool state) { control.Enabled(state); }),
        Field<L"YesText">(&YesNo::YesText, L"Y").In(PropertyCategory::Data),
        Field<L"NoText">(&YesNo::NoText, L"N").In(PropertyCategory::Data),
        Field<L"Value">(&YesNo::Value_, Neither).LetBy([](auto& control, long answer) {
            control.Value(answer);
        }),
        FontProperty().ReadAt(3),
        Unstored<L"hwnd">([](auto& control) { return control.TheSurface().hWnd(); }),
        Unstored<L"Text">([](auto& control) { return control.Text(); },
                          [](auto& control, const Variant& text) { control.Text(text); }),
    };
};

// --- The control's life ---

void YesNo::UserControl_Initialize()
{
    if (!Module().SharedPictures.YNCLEAR)
        Main();
    RegisterOwner(TheSurface().hWnd(), &subClass_);
    PrevWndProc.HookWindow(TheSurface());
    FocusOption = 1;
}

void YesNo::UserControl_InitProperties()
{
    Properties::Table.Reset(*this);
}

void YesNo::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Properties::Table.Read(*this, PropBag);
}

void YesNo::UserControl_Resize()
{
    CalcLayout();
}

void YesNo::UserControl_Paint()
{
    const Graphics graphics = TheSurface().AcquireGraphics();
    const HDC dc = graphics.Dc();
    const MemoryDc memory(graphics.CompatibleWith());
    if (!memory)
        return;

    const HBITMAP mask = OptionPicture(&SharedPictures::YNMASK);
    for (const long option : {Yes, No})
        DrawOption(dc, memory.Get(), mask, option, SRCAND);
    for (const long option : {Yes, No})
    {
        const HBITMAP picture =
            OptionPicture(Value_ == option ? &SharedPictures::YNSET : &SharedPictures::YNCLEAR);
        const GdiObject<HBITMAP> recolored =
            InHighContrast() ? InTwoColors(picture, mask, OptionColors()) : GdiObject<HBITMAP>();
        DrawOption(dc, memory.Get(), recolored ? recolored.Get() : picture, option, SRCPAINT);
    }

    const SIZE size = TheSurface().PixelSize();
    const int margin = Scale().Of(2);
    RECT yesCaption = {0, 0, layout_.YesRight - margin, size.cy};
    RECT noCaption = {layout_.NoLeft, 0, size.cx - margin, size.cy};
    DrawCaption(dc, YesCaption, yesCaption, CaptionFormat, TheSurface().Enabled());
    DrawCaption(dc, NoCaption, noCaption, CaptionFormat, TheSurface().Enabled());

    if (GetFocus() == TheSurface().hWnd())
        DrawFocusState(Neither);
}

void YesNo::UserControl_MouseDown(short, short, double X, double)
{
    if (const long option = OptionAt(layout_, X, TheSurface().TheResolution().TwipsPerPixelX()))
        DrawFocusState(static_cast<AnswerEnums>(option));
}

void YesNo::UserControl_MouseUp(short, short, double X, double Y)
{
    const bool focused = GetFocus() == TheSurface().hWnd();
    const bool inside = X >= 0 && X <= TheSurface().ScaleWidth() && Y >= 0 && Y <= TheSurface().ScaleHeight();
    if (!focused || !inside)
        return;
    if (const long option = OptionAt(layout_, X, TheSurface().TheResolution().TwipsPerPixelX()))
        CommitValue(Toggled(Value_, option));
}

void YesNo::UserControl_KeyDown(short& KeyCode, short)
{
    const bool mirrored = TheSurface().IsMirrored();
    if (KeyCode == VK_LEFT)
        DrawFocusState(mirrored ? No : Yes);
    else if (KeyCode == VK_RIGHT)
        DrawFocusState(mirrored ? Yes : No);
}

void YesNo::UserControl_KeyPress(short& KeyAscii)
{
    if (const long option = OptionOfCharacter(KeyAscii))
    {
        DrawFocusState(static_cast<AnswerEnums>(option));
        if (Value_ != option)
            CommitValue(option);
    }
    else if (KeyAscii == ' ')
    {
        CommitValue(Toggled(Value_, FocusOption));
    }
}

void YesNo::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Properties::Table.Write(*this, PropBag);
}

void YesNo::UserControl_Terminate()
{
    PrevWndProc.UnhookWindow();
}

bool YesNo::Hooks(HWND hwnd) const
{
    return hwnd == TheSurface().hWnd();
}

// Errors are trapped by the service: they must not unwind through the window procedure.
LRESULT YesNo::ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    // Toggling draws the rectangle on the way in and erases it on the way out.
    if (msg == WM_SETFOCUS || msg == WM_KILLFOCUS)
        Boundary([&] { DrawFocusState(Neither); });
    return CallPrevious(PrevWndProc, hwnd, msg, wParam, lParam);
}

// --- Properties ---

void YesNo::Enabled(bool newState)
{
    EnableWindow(TheSurface().hWnd(), newState);
    StandardControl::Enabled(newState);
}

void YesNo::ApplyFont()
{
    CalcLayout();
    Refresh();
}

Variant YesNo::Text() const
{
    if (Value_ == Yes)
        return Variant(YesText);
    if (Value_ == No)
        return Variant(NoText.Text());
    return Variant::Null();
}

void YesNo::Text(const Variant& newText)
{
    if (EqualAsText(newText, NoText))
        Value(No);
    else if (EqualAsText(newText, Variant(YesText)))
        Value(Yes);
    else if (Value_ != Neither)
        Value(Neither);
}

// Any number is taken: one that is no answer shows both options unselected.
void YesNo::Value(long newAnswer)
{
    if (newAnswer == Value_)
        return;
    const long oldAnswer = std::exchange(Value_, newAnswer);
    PropertyChanged(L"Value");
    PropertyChanged(L"Text");
    Refresh();
    Announce(EVENT_OBJECT_VALUECHANGE);
    for (const int option : {Yes, No})
        if (option == oldAnswer || option == newAnswer)
            Announce(EVENT_OBJECT_STATECHANGE, option);
    RaiseChange();
}

// --- Methods and events ---

HRESULT YesNo::DrawFocusState(AnswerEnums* TargetFocus) noexcept
{
    return Member([&] { DrawFocusState(TargetFocus ? *TargetFocus : Neither); });
}

HRESULT YesNo::ShowAboutBox() noexcept
{
    return Member([&] {
        AppMsgBox(L"Yes/No custom control that will let you unselect an option after you have selected it.",
                  MB_OK);
    });
}

// Whether the host lets the change happen.
bool YesNo::RaiseClick()
{
    VARIANT_BOOL Cancel = VARIANT_FALSE;
    const Variant arguments[] = {Variant::ByReference(VT_BOOL, &Cancel)};
    RaiseEvent(YesNoEvents::Click, arguments);
    return Cancel == VARIANT_FALSE;
}

void YesNo::RaiseChange()
{
    RaiseEvent(YesNoEvents::Change);
}

// --- For assistive tools: two radio buttons, of which a selected one can be cleared ---

AccessibleInfo YesNo::Accessible() const
{
    AccessibleInfo info;
    info.Role = ROLE_SYSTEM_GROUPING;
    info.Value = Value_ == Yes ? YesCaption : Value_ == No ? NoCaption : L"";
    return info;
}

AccessibleInfo YesNo::AccessiblePart(int option) const
{
    const bool isSet = Value_ == option;
    AccessibleInfo info;
    info.Role = ROLE_SYSTEM_RADIOBUTTON;
    info.Name = option == Yes ? YesCaption : NoCaption;
    info.KeyboardShortcut = option == Yes ? L"Y" : L"N";
    info.DefaultAction = isSet ? L"Clear" : L"Select";
    info.State = isSet ? STATE_SYSTEM_CHECKED : 0;
    info.Place = PlaceOf(option);
    return info;
}

// As a click does it.
bool YesNo::DoDefaultAction(int option)
{
    if (option == CHILDID_SELF || !TakesInput())
        return false;
    TakeFocus();
    DrawFocusState(static_cast<AnswerEnums>(option));
    CommitValue(Toggled(Value_, option));
    return true;
}

// --- Layout, painting and the answer ---

void YesNo::CalcLayout()
{
    const Surface& surface = TheSurface();
    layout_ =
        CalcYesNoLayout(surface.ScaleWidth(), surface.TextWidth(YesCaption), surface.TextWidth(NoCaption),
                        surface.TheResolution().TwipsPerPixelX(), Scale());
}

RECT YesNo::PlaceOf(long option) const
{
    const SIZE size = TheSurface().PixelSize();
    return option == Yes ? RECT{0, 0, layout_.YesRight, size.cy} : RECT{layout_.NoLeft, 0, size.cx, size.cy};
}

HBITMAP YesNo::OptionPicture(Picture SharedPictures::*which) const
{
    return BitmapOf(PictureIn(Scale(), which));
}

TwoColors YesNo::OptionColors() const
{
    const Surface& surface = TheSurface();
    return {surface.Enabled() ? ResolvedColor(surface.ForeColor()) : GetSysColor(COLOR_GRAYTEXT),
            ResolvedColor(surface.BackColor())};
}

// A picture that could not be loaded is left out.
void YesNo::DrawOption(HDC dc, HDC memory, HBITMAP picture, long option, DWORD rasterOperation) const
{
    if (!picture)
        return;
    const PictureScale scale = Scale();
    const int top =
        OptionImageTop(TheSurface().ScaleHeight(), TheSurface().TheResolution().TwipsPerPixelY(), scale);
    const int size = scale.Of(OptionImageSize);
    const Selection selected(memory, picture);
    const UprightPictures upright(dc);
    BitBlt(dc, PlaceOf(option).left, top, size, size, memory, 0, 0, rasterOperation);
}

// There is no record of whether the rectangle shows: drawing inverts, so each call without a target toggles
// it. A host that moves it while the control has no focus leaves one at each option; that is deliberate.
void YesNo::DrawFocusState(AnswerEnums TargetFocus)
{
    if (!Ambient().UserMode())
        return;
    if (TargetFocus != Neither)
    {
        if (TargetFocus == FocusOption)
            return;
        DrawFocusState(Neither);
        FocusOption = static_cast<short>(TargetFocus);
        if (TheSurface().ContainsFocus())
            Announce(EVENT_OBJECT_FOCUS, FocusOption);
    }
    const RECT rectangle = PlaceOf(FocusOption);
    DrawFocusRect(TheSurface().AcquireGraphics().Dc(), &rectangle);
}

void YesNo::CommitValue(long newValue)
{
    const long oldValue = Value_;
    Value_ = newValue;
    if (!RaiseClick())
    {
        Value_ = oldValue;
        Refresh();
        return;
    }
    if (oldValue == newValue)
        return;
    Value_ = oldValue;
    Value(newValue);
}

} // namespace kiv
