#pragma once

#include "controls/choice/YesNoRules.h"
#include "controls/standard/StandardControl.h"
#include "framework/subclass/ModuleData.h"
#include "framework/subclass/SubClass.h"
#include "framework/subclass/SubClassOwner.h"
#include "runtime/drawing/TwoColors.h"

#include <KivMembers.h>

namespace kiv
{

// A yes/no answer that can be unselected again: choosing the selected option returns it to Neither. Draws
// itself, the options' focus rectangle included, and asks the host before every change that the user makes.
class YesNo final : public YesNoMembers<YesNo, StandardControl>
{
public:
    static const ControlClass Class;
    struct Properties;

    explicit YesNo(IUnknown* outer);

    // _YesNo: members with arguments of their own
    HRESULT STDMETHODCALLTYPE DrawFocusState(AnswerEnums* TargetFocus) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowAboutBox() noexcept override;

    bool Hooks(HWND hwnd) const;
    LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

protected:
    void* FindInterface(REFIID iid) noexcept override;
    AccessibleInfo Accessible() const override;
    AccessibleInfo AccessiblePart(int option) const override;
    int PartCount() const override { return No; }
    int FocusedPart() const override { return TheSurface().ContainsFocus() ? FocusOption : 0; }
    bool DoDefaultAction(int option) override;

private:
    // The control's life, in its order.
    void UserControl_Initialize() override;
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_Resize() override;
    void UserControl_Paint() override;
    void UserControl_MouseDown(short Button, short Shift, double X, double Y) override;
    void UserControl_MouseUp(short Button, short Shift, double X, double Y) override;
    void UserControl_KeyDown(short& KeyCode, short Shift) override;
    void UserControl_KeyPress(short& KeyAscii) override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;
    void UserControl_Terminate() override;

    // Properties.
    using StandardControl::Enabled;
    void Enabled(bool newState) override;
    void ApplyFont() override;
    Variant Text() const;
    void Text(const Variant& newText);
    void Value(long newAnswer);

    // Events.
    bool RaiseClick();
    void RaiseChange();

    void CalcLayout();
    RECT PlaceOf(long option) const; // pixels of the surface
    PictureScale Scale() const { return PictureScaleAt(TheSurface().TheResolution()); }
    HBITMAP OptionPicture(Picture SharedPictures::*which) const;
    TwoColors OptionColors() const; // in high contrast
    void DrawOption(HDC dc, HDC memory, HBITMAP picture, long option, DWORD rasterOperation) const;
    void DrawFocusState(AnswerEnums TargetFocus);
    void CommitValue(long newValue);

    SubClassOwner<YesNo> subClass_{*this};
    long Value_ = 0;
    std::wstring YesText;
    Variant NoText; // whatever kind of value the container's bag held; compared and handed out as text
    short FocusOption = 1;
    YesNoLayout layout_ = {};
    WindowHook PrevWndProc;
};

} // namespace kiv
