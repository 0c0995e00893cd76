#include "controls/choice/PicCommand.h"

#include "framework/subclass/ModuleData.h"
#include "resources/ResourceIds.h"
#include "runtime/com/LateBound.h"
#include "runtime/core/Mnemonic.h"

namespace kiv
{

const ControlClass PicCommand::Class = {
    CLSID_PicCommand, __uuidof(_PicCommand),     __uuidof(__PicCommand),
    L"PicCommand",    L"KivControls.PicCommand", KIV_TOOLBOX_PICCOMMAND,
    {1800, 375},
};

PicCommand::PicCommand(IUnknown* outer) : PicCommandMembers(Class, outer) {}

void* PicCommand::FindInterface(REFIID iid) noexcept
{
    if (iid == __uuidof(ISubClass))
        return static_cast<ISubClass*>(&subClass_);
    return PicCommandMembers::FindInterface(iid);
}

struct PicCommand::Properties
{
    static constexpr PropertyTable Table{
        // Any number is taken: one that is no status, or no type, shows no picture.
        Field<L"DetailStatus">(&PicCommand::DetailStatus, 0)
            .LetBy([](auto& button, long status) { button.SetDetailStatus(status); })
            .In(PropertyCategory::Data),
        Field<L"PictureType">(&PicCommand::PictureType, 0)
            .LetBy([](auto& button, long type) {
                button.PictureType = type;
                button.PropertyChanged(L"PictureType");
                button.Announce(EVENT_OBJECT_DESCRIPTIONCHANGE);
                button.RepaintButton();
            })
            .In(PropertyCategory::Appearance),
        // Read as the button's alone.
        Property<L"Enabled">([](auto& button) { return button.cmd.Enabled(); },
                             [](auto& button, bool state) { button.cmd.Enabled(state); }, true)
            .LetBy([](auto& button, bool state) { button.Enabled(state); }),
        Property<L"Caption">([](auto& button) { return button.Caption; },
                             [](auto& button, std::wstring_view caption) { button.TakeCaption(caption); },
                             L"")
            .LetBy([](auto& button, std::wstring_view caption) {
                button.TakeCaption(caption);
                button.PropertyChanged(L"Caption");
                button.RepaintButton();
            })
            .In(PropertyCategory::Appearance),
        // A stored True presses the button.
        Property<L"Value">([](auto& button) { return button.cmd.Value(); },
                           [](auto& button, bool state) { button.cmd.Value(state); }, false)
            .LetBy([](auto& button, bool state) {
                button.cmd.Value(state);
                button.PropertyChanged(L"Value");
            }),
        FontProperty().ReadAt(4),
        Unstored<L"BoundDetailStatus">(
            [](auto& button) { return Variant(button.DetailStatus); },
            [](auto& button, const Variant& status) { button.SetBoundDetailStatus(status); })
            .In(PropertyCategory::Data),
        Unstored<L"hwnd">([](auto& button) { return button.TheSurface().hWnd(); }),
    };
};

// --- The control's life ---

void PicCommand::UserControl_Initialize()
{
    if (!Module().SharedPictures.checkmark)
        Main();
    cmd.OnClick = [this] { cmd_Click(); };
    SetWindowLongPtrA(cmd.hWnd(), GWL_STYLE, GetWindowLongPtrA(cmd.hWnd(), GWL_STYLE) | BS_OWNERDRAW);
    for (const HWND window : {TheSurface().hWnd(), cmd.hWnd()})
        RegisterOwner(window, &subClass_);
    PrevWndProc.HookWindow(TheSurface());
    PrevWndProcOfCmd.HookWindow(cmd);
}

// A new one is called as the form calls it.
void PicCommand::UserControl_InitProperties()
{
    Properties::Table.Reset(*this);
    TakeCaption(Extender().Text(L"Name"));
}

void PicCommand::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Properties::Table.Read(*this, PropBag);
}

void PicCommand::UserControl_Resize()
{
    const SIZE size = TheSurface().PixelSize();
    cmd.Move(0, 0, size.cx, size.cy, false);
    // All of it, once: a frame that has moved is not the only thing to be painted.
    cmd.Invalidate(false);
}

void PicCommand::UserControl_AccessKeyPress(wchar_t)
{
    if (!cmd.Enabled())
        return;
    TakeFocus();
    // The host may have answered the focus by disabling the button.
    if (cmd.Enabled())
        cmd.Value(true);
}

void PicCommand::UserControl_WriteProperties(PropertyBag& PropBag)
{
    Properties::Table.Write(*this, PropBag);
}

void PicCommand::UserControl_Terminate()
{
    PrevWndProc.UnhookWindow();
    PrevWndProcOfCmd.UnhookWindow();
}

// Also while the control is loading: a stored Value that presses the button is a click like any other.
void PicCommand::cmd_Click()
{
    RaiseEventAtAnyTime(PicCommandEvents::Click);
}

bool PicCommand::Hooks(HWND hwnd) const
{
    return hwnd == cmd.hWnd() || hwnd == TheSurface().hWnd();
}

// Errors are trapped by the service: they must not unwind through the window procedure.
LRESULT PicCommand::ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (hwnd == cmd.hWnd())
    {
        if (msg != WM_PAINT && msg != WM_ENABLE)
            return CallPrevious(PrevWndProcOfCmd, hwnd, msg, wParam, lParam);
        PaintButton(hwnd, msg);
        return 0;
    }
    if (msg != WM_DRAWITEM || lParam == 0)
        return CallPrevious(PrevWndProc, hwnd, msg, wParam, lParam);
    const DRAWITEMSTRUCT item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    DrawButton(item);
    return 0;
}

// --- Properties ---

// Any number is taken: one that is no status shows no picture.
void PicCommand::SetDetailStatus(long newStatus)
{
    DetailStatus = newStatus;
    PropertyChanged(L"DetailStatus");
    PropertyChanged(L"BoundDetailStatus");
    Announce(EVENT_OBJECT_DESCRIPTIONCHANGE);
    RepaintButton();
}

void PicCommand::SetBoundDetailStatus(const Variant& newStatus)
{
    const std::optional<Variant> status = newStatus.IsNull() ? Variant(0L) : newStatus.As(VT_I4);
    if (!status)
        throw ComError(InvalidPropertyValue);
    SetDetailStatus(status->Long());
}

void PicCommand::Enabled(bool newState)
{
    EnableWindow(TheSurface().hWnd(), newState);
    TheSurface().Enabled(newState);
    cmd.Enabled(newState);
    PropertyChanged(L"Enabled");
}

// The button's window has the caption too, for those who listen to a screen reader instead of looking.
void PicCommand::TakeCaption(std::wstring_view newText)
{
    Caption = newText;
    cmd.Caption(Caption);
    const wchar_t mnemonic = MnemonicOf(Caption);
    SetAccessKeys(std::wstring_view(&mnemonic, mnemonic != 0 ? 1 : 0));
    Announce(EVENT_OBJECT_NAMECHANGE);
}

HRESULT PicCommand::Refresh() noexcept
{
    return Member([&] { RepaintButton(); });
}

// --- For assistive tools ---

AccessibleInfo PicCommand::Accessible() const
{
    const ButtonIcon icon = ButtonPictureOf(PictureType, DetailStatus).Icon;
    AccessibleInfo info;
    info.Role = IsLinkStyle(icon) ? ROLE_SYSTEM_LINK : ROLE_SYSTEM_PUSHBUTTON;
    info.Description = MeaningOf(icon);
    info.DefaultAction = IsLinkStyle(icon) ? L"Jump" : L"Press";
    info.KeyboardShortcut = AccessKeyOf(Caption);
    return info;
}

std::wstring PicCommand::AccessibleName() const
{
    const std::wstring shown = WithoutMnemonic(Caption);
    return shown.empty() ? PicCommandMembers::AccessibleName() : shown;
}

// Who asks does not wait for what comes of it.
bool PicCommand::DoDefaultAction(int)
{
    return TakesInput() && cmd.Enabled() && cmd.Post(BM_CLICK);
}

} // namespace kiv
