#pragma once

#include "controls/entry/BoxState.h"
#include "framework/SubClass.h"
#include "framework/SubClassOwner.h"
#include "runtime/com/LateBound.h"
#include "runtime/forms/StandardControl.h"
#include "runtime/forms/TextBox.h"

#include <KivControls.h>

#include <algorithm>
#include <initializer_list>

namespace kiv
{

BoxState StateOf(const TextBox& box);

// A control that reports as its Value what the user types into a text box of it, whose messages it hooks.
template<class Dual>
class EntryControl : public StandardControl<Dual>
{
public:
    HRESULT STDMETHODCALLTYPE get_Value(VARIANT* result) noexcept override
    {
        return result ? this->Member([&] { Value().DetachTo(result); }) : E_POINTER;
    }
    HRESULT STDMETHODCALLTYPE put_Value(VARIANT newValue) noexcept override
    {
        return this->Member([&] { Value(PlainValue(Variant(newValue))); });
    }
    HRESULT STDMETHODCALLTYPE IsValidInput(VARIANT_BOOL* ShowMessage, VARIANT_BOOL* result) noexcept override
    {
        const bool show = ShowMessage && *ShowMessage != VARIANT_FALSE;
        return this->Get(result, [&] { return IsValidInput(show) ? VARIANT_TRUE : VARIANT_FALSE; });
    }

    bool Hooks(HWND hwnd) const { return hwnd == hookedWindow_; }
    // A message of the hooked box. Errors are trapped by the service: they must not unwind through the window
    // procedure.
    virtual LRESULT ISubClass_WndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) = 0;

protected:
    using StandardControl<Dual>::StandardControl;

    void* FindInterface(REFIID iid) noexcept override
    {
        if (iid == __uuidof(ISubClass))
            return static_cast<ISubClass*>(&subClass_);
        return StandardControl<Dual>::FindInterface(iid);
    }

    void FontChanged() override
    {
        this->ApplyFont();
        this->PropertyChanged(L"Font");
    }

    // Lets each of the boxes cover the surface, which grows to what their font needs.
    void CoverWith(std::initializer_list<TextBox*> boxes)
    {
        const SIZE size = this->TheSurface().PixelSize();
        LONG needed = 0;
        for (TextBox* box : boxes)
        {
            box->Move(0, 0, size.cx, size.cy);
            needed = std::max(needed, box->OuterSize().cy);
        }
        // Once: a container that insists on its own size is not asked for each box.
        if (needed > size.cy)
            this->RequestSize({size.cx, needed});
    }

    virtual Variant Value() const = 0;
    virtual void Value(const Variant& newValue) = 0;
    virtual bool IsValidInput(bool ShowMessage) = 0;

    // One box at a time is hooked: another one's hook goes.
    void HookBox(const TextBox& box)
    {
        UnhookBox();
        hookedWindow_ = box.hWnd();
        RegisterOwner(hookedWindow_, &subClass_);
        if (!ErrorPending())
            HookWindow(hookedWindow_, PrevWndProc);
    }
    void UnhookBox() { UnhookWindow(hookedWindow_, PrevWndProc); }
    HWND HookedWindow() const { return hookedWindow_; }

    WndProcSlot PrevWndProc = 0;

private:
    SubClassOwner<EntryControl> subClass_{*this};
    HWND hookedWindow_ = nullptr;
};

} // namespace kiv
