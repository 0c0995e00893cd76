#pragma once

#include "controls/choice/PicCommandRules.h"
#include "controls/standard/StandardControl.h"
#include "framework/subclass/SubClass.h"
#include "framework/subclass/SubClassOwner.h"
#include "runtime/constituents/CommandButton.h"

#include <KivMembers.h>

namespace kiv
{

// A push button with a small picture beside its caption: what it leads to, or how complete that is. The
// button inside is a real, owner-drawn one, whose painting the control does itself.
class PicCommand final : public PicCommandMembers<PicCommand, StandardControl>
{
public:
    static const ControlClass Class;
    struct Properties;

    explicit PicCommand(IUnknown* outer);

    // _PicCommand: members with arguments of their own
    HRESULT STDMETHODCALLTYPE Refresh() noexcept override;

    bool Hooks(HWND hwnd) const;
    LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

protected:
    void* FindInterface(REFIID iid) noexcept override;
    const Window& FocusWindow() const override
    {
        return cmd.Enabled() ? static_cast<const Window&>(cmd) : TheSurface();
    }
    bool TakesReturn() const override { return true; }
    AccessibleInfo Accessible() const override;
    std::wstring AccessibleName() const override;
    bool DoDefaultAction(int part) override;

private:
    // The control's life, in its order.
    void UserControl_Initialize() override;
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_Resize() override;
    void UserControl_AccessKeyPress(wchar_t letter) override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;
    void UserControl_Terminate() override;
    void cmd_Click();

    // Properties.
    bool Enabled() const override { return cmd.Enabled(); }
    void Enabled(bool newState) override;
    void ApplyFont() override { RepaintButton(); }
    void SetDetailStatus(long newStatus);
    void SetBoundDetailStatus(const Variant& newStatus);
    void TakeCaption(std::wstring_view newText);

    // Painting (PicCommand_paint.cpp)
    PictureScale Scale() const { return PictureScaleAt(TheSurface().TheResolution()); }
    void RepaintButton();
    void PaintButton(HWND button, UINT msg);
    void DrawButton(const DRAWITEMSTRUCT& item);
    void DrawFace(const DRAWITEMSTRUCT& item, const PixelRect& inside, const ButtonPicture& picture,
                  HICON icon);

    SubClassOwner<PicCommand> subClass_{*this};
    long DetailStatus = 0;
    long PictureType = 0;
    std::wstring Caption;
    CommandButton cmd{*this, TheSurface().hWnd()};
    WindowHook PrevWndProc;
    WindowHook PrevWndProcOfCmd;
};

} // namespace kiv
