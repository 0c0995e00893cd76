#include "controls/choice/PicCommand.h"

#include "framework/ModuleData.h"
#include "resources/ResourceIds.h"
#include "runtime/com/LateBound.h"
#include "runtime/core/Mnemonic.h"

namespace kiv
{

namespace
{

constexpr DISPID ClickEvent = 1;

} // namespace

const ControlClass PicCommand::Class = {
    CLSID_PicCommand, __uuidof(_PicCommand),     __uuidof(__PicCommand),
    L"PicCommand",    L"KivControls.PicCommand", KIV_TOOLBOX_PICCOMMAND,
    {1800, 375},
};

PicCommand::PicCommand(IUnknown* outer) : FontControl(Class, outer) {}

void* PicCommand::FindInterface(REFIID iid) noexcept
{
    if (iid == __uuidof(ISubClass))
        return static_cast<ISubClass*>(&subClass_);
    return FontControl::FindInterface(iid);
}

struct PicCommand::Persisted
{
    static constexpr PropertyTable Table{
        Field(L"DetailStatus", &PicCommand::DetailStatus, 0),
        Field(L"PictureType", &PicCommand::PictureType, 0),
        // The button's alone, unlike the property.
        Property(
            L"Enabled", [](auto& button) { return button.cmd.Enabled(); },
            [](auto& button, bool state) { button.cmd.Enabled(state); }, true),
        Property(
            L"Caption", [](auto& button) { return button.Caption; },
            [](auto& button, std::wstring_view caption) { button.TakeCaption(caption); }, L""),
        // A stored True presses the button.
        Property(
            L"Value", [](auto& button) { return button.cmd.Value(); },
            [](auto& button, bool state) { button.cmd.Value(state); }, false),
        StoredFont().Written(&AsFont).ReadAt(4),
    };
};

// --- The control's life ---

void PicCommand::UserControl_Initialize()
{
    if (!Module().SharedPictures.checkmark)
        Main();
    cmd.OnClick = [this] { cmd_Click(); };
    SetWindowLongPtrA(cmd.hWnd(), GWL_STYLE, GetWindowLongPtrA(cmd.hWnd(), GWL_STYLE) | BS_OWNERDRAW);
    Font(CreateDefaultFont());
    for (const HWND window : {TheSurface().hWnd(), cmd.hWnd()})
        RegisterOwner(window, &subClass_);
    HookWindow(TheSurface().hWnd(), PrevWndProc);
    HookWindow(cmd.hWnd(), PrevWndProcOfCmd);
}

// A new one is called as the form calls it.
void PicCommand::UserControl_InitProperties()
{
    Persisted::Table.Reset(*this);
    const std::optional<Variant> name = Extender().Get(L"Name").As(VT_BSTR);
    TakeCaption(name ? name->Text() : std::wstring_view());
}

void PicCommand::UserControl_ReadProperties(PropertyBag& PropBag)
{
    Persisted::Table.Read(*this, PropBag);
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
    Persisted::Table.Write(*this, PropBag);
}

void PicCommand::UserControl_Terminate()
{
    UnhookWindow(TheSurface().hWnd(), PrevWndProc);
    UnhookWindow(cmd.hWnd(), PrevWndProcOfCmd);
}

// Also while the control is loading: a stored Value that presses the button is a click like any other.
void PicCommand::cmd_Click()
{
    RaiseEventAtAnyTime(ClickEvent);
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

HRESULT PicCommand::get_DetailStatus(DetailStatusEnums* result) noexcept
{
    return Get(result, [&] { return static_cast<DetailStatusEnums>(DetailStatus); });
}

HRESULT PicCommand::put_DetailStatus(DetailStatusEnums newStatus) noexcept
{
    return Member([&] { SetDetailStatus(newStatus); });
}

// Any number is taken: one that is no status shows no picture.
void PicCommand::SetDetailStatus(long newStatus)
{
    DetailStatus = newStatus;
    PropertyChanged(L"DetailStatus");
    PropertyChanged(L"BoundDetailStatus");
    RepaintButton();
}

HRESULT PicCommand::get_BoundDetailStatus(VARIANT* result) noexcept
{
    return result ? Member([&] { Variant(DetailStatus).DetachTo(result); }) : E_POINTER;
}

HRESULT PicCommand::put_BoundDetailStatus(VARIANT newStatus) noexcept
{
    return Member([&] { SetBoundDetailStatus(PlainValue(Variant(newStatus))); });
}

void PicCommand::SetBoundDetailStatus(const Variant& newStatus)
{
    const std::optional<Variant> status = newStatus.IsNull() ? Variant(0L) : newStatus.As(VT_I4);
    if (!status)
        throw ComError(InvalidPropertyValue);
    SetDetailStatus(status->Long());
}

HRESULT PicCommand::get_PictureType(ButtonPictureTypeEnums* result) noexcept
{
    return Get(result, [&] { return static_cast<ButtonPictureTypeEnums>(PictureType); });
}

// Any number is taken, as for DetailStatus.
HRESULT PicCommand::put_PictureType(ButtonPictureTypeEnums newType) noexcept
{
    return Member([&] {
        PictureType = newType;
        PropertyChanged(L"PictureType");
        RepaintButton();
    });
}

void PicCommand::Enabled(bool newState)
{
    EnableWindow(TheSurface().hWnd(), newState);
    TheSurface().Enabled(newState);
    cmd.Enabled(newState);
    PropertyChanged(L"Enabled");
}

HRESULT PicCommand::get_Caption(BSTR* result) noexcept
{
    return Get(result, [&] { return Bstr(Caption).Detach(); });
}

HRESULT PicCommand::put_Caption(BSTR newText) noexcept
{
    return Member([&] {
        TakeCaption(Bstr::ViewOf(newText));
        PropertyChanged(L"Caption");
        RepaintButton();
    });
}

// The button's window has the caption too, for those who listen to a screen reader instead of looking.
void PicCommand::TakeCaption(std::wstring_view newText)
{
    Caption = newText;
    cmd.Caption(Caption);
    const wchar_t mnemonic = MnemonicOf(Caption);
    SetAccessKeys(std::wstring_view(&mnemonic, mnemonic != 0 ? 1 : 0));
}

HRESULT PicCommand::get_hwnd(LONG* result) noexcept
{
    return Get(result, [&] { return HandleToLong(TheSurface().hWnd()); });
}

HRESULT PicCommand::get_Value(VARIANT_BOOL* result) noexcept
{
    return Get(result, [&] { return cmd.Value() ? VARIANT_TRUE : VARIANT_FALSE; });
}

HRESULT PicCommand::put_Value(VARIANT_BOOL newState) noexcept
{
    return Member([&] {
        cmd.Value(newState != VARIANT_FALSE);
        PropertyChanged(L"Value");
    });
}

HRESULT PicCommand::Refresh() noexcept
{
    return Member([&] { RepaintButton(); });
}

} // namespace kiv
