#pragma once

#include "controls/lists/ChkComboRules.h"
#include "controls/standard/StandardControl.h"
#include "framework/subclass/SubClass.h"
#include "framework/subclass/SubClassOwner.h"
#include "runtime/constituents/ComboBox.h"
#include "runtime/constituents/ReachWatch.h"
#include "runtime/constituents/ScrollBar.h"

#include <KivMembers.h>

#include <optional>

namespace kiv
{

// A drop-down list whose items carry a completion status, drawn as an icon in front of the text. The focus is
// with HScroll1, which nobody sees: its value is the selection, kept equal to the combo box's own.
class ChkCombo final : public ChkComboMembers<ChkCombo, StandardControl>
{
public:
    static const ControlClass Class;
    struct Properties;

    explicit ChkCombo(IUnknown* outer);

    // _ChkCombo: members with arguments of their own
    HRESULT STDMETHODCALLTYPE get_List(short Index, BSTR* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_List(short Index, BSTR newText) noexcept override;
    HRESULT STDMETHODCALLTYPE get_ItemData(short Index, LONG* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_ItemData(short Index, LONG newData) noexcept override;
    HRESULT STDMETHODCALLTYPE get_ListCompletionStatus(short Index,
                                                       DetailStatusEnums* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_ListCompletionStatus(short Index,
                                                       DetailStatusEnums newStatus) noexcept override;
    HRESULT STDMETHODCALLTYPE AddItem(BSTR Item, short Index) noexcept override;
    HRESULT STDMETHODCALLTYPE RemoveItem(short Index) noexcept override;
    HRESULT STDMETHODCALLTYPE Clear() noexcept override;
    HRESULT STDMETHODCALLTYPE Refresh() noexcept override;

    bool Hooks(HWND hwnd) const;
    LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

protected:
    void* FindInterface(REFIID iid) noexcept override;
    const Window& FocusWindow() const override { return HScroll1; }
    bool Wants(WPARAM key) const override;
    AccessibleInfo Accessible() const override;
    int PartCount() const override { return 1; }
    AccessibleSource* SourceOf(int part) override { return part == 1 ? &items_ : nullptr; }
    bool DoDefaultAction(int part) override;

private:
    // Its list, to assistive tools (ChkCombo_accessible.cpp).
    class Items final : public AccessibleSource
    {
    public:
        explicit Items(ChkCombo& combo) : combo_(combo) {}
        AccessibleInfo Describe(int item) const override;
        std::wstring NameOf(int item) const override;
        int PartCount() const override { return combo_.list_.Count(); }
        int FocusedPart() const override { return combo_.cbo.IsDropped() ? SelectedPart() : 0; }
        int SelectedPart() const override { return combo_.HScroll1.Value() + 1; }
        bool DoDefaultAction(int item) override { return TakeAccessibleSelection(item); }
        bool TakeAccessibleSelection(int item) override;
        IUnknown* AccessibleHolder() noexcept override { return combo_.Outer(); }

    private:
        ChkCombo& combo_;
    };

    // The control's life, in its order.
    void UserControl_Initialize() override;
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag& PropBag) override;
    void UserControl_Resize() override;
    void UserControl_KeyDown(short& KeyCode, short Shift) override;
    void UserControl_KeyPress(short& KeyAscii) override;
    void UserControl_WriteProperties(PropertyBag& PropBag) override;
    void UserControl_Hide() override;
    void UserControl_Terminate() override;
    void HScroll1_Change();
    void HScroll1_KeyDown(short& KeyCode, short Shift);
    void HScroll1_KeyPress(short& KeyAscii);

    // Messages (ChkCombo_messages.cpp).
    LRESULT ComboMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    LRESULT ScrollBarMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    LRESULT ControlMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);
    void Combo_Notified(WORD code);
    void Combo_SelChange();
    void Combo_DropDown();
    void Combo_CloseUp();
    void DrawItem(const DRAWITEMSTRUCT& item) const;
    void DrawContent(const DRAWITEMSTRUCT& item) const;

    // Properties.
    using StandardControl::Enabled;
    void Enabled(bool newState) override;
    void ApplyFont() override;
    void FontChanged() override;
    void ListIndex(short newSelection);
    void List(short Index, std::wstring_view newText);

    // Methods.
    void Insert(std::wstring_view Item, short Index);
    void Remove(short Index);
    void RemoveAll();

    void Follow();
    void RequireItem(short Index);
    void RequireRunTime() const;
    void MoveSelection(short index);
    void FollowShift(short index);
    void SelectNext(short KeyAscii);
    void RaiseClick();

    SubClassOwner<ChkCombo> subClass_{*this};
    Items items_{*this};
    ChkComboList list_;
    FocusDebounce focusDebounce_;
    ScrollBar HScroll1{*this, TheSurface().hWnd()};
    ComboBox cbo{*this, TheSurface().hWnd()};
    bool internalChange_ = false; // HScroll1's value is being moved by the control itself
    bool resizing_ = false;
    bool choosing_ = false;           // the user has picked from the open list
    bool leftMeanwhile_ = false;      // the host has put the control away in DropDown
    std::optional<ReachWatch> watch_; // while the list is open
    WindowHook controlPrevWndProc_;
    WindowHook comboPrevWndProc_;
    WindowHook scrollBarPrevWndProc_;
};

} // namespace kiv
