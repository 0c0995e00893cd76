#pragma once

#include "runtime/com/PropertyBag.h"
#include "runtime/constituents/Window.h"
#include "runtime/drawing/FontReference.h"

#include <windows.h>

#include <KivControls.h>

#include <string_view>

namespace kiv
{

// The window subclassing service. One window procedure serves all hooked windows: a window's user-data slot
// leads to its owner's ISubClass, and each owner keeps a WindowHook for each window that it hooks. There is
// no table of windows.

// Leads the window's messages to an owner, not counted: the owner unhooks before it goes. Comes before the
// hook.
void RegisterOwner(HWND hwnd, ISubClass* owner) noexcept;

// A hook in a window, for as long as it lives unless it is taken out before.
class WindowHook
{
public:
    WindowHook() = default;
    WindowHook(const WindowHook&) = delete;
    WindowHook& operator=(const WindowHook&) = delete;
    ~WindowHook() { UnhookWindow(); }

    // Installs SubClassWndProc, unless a window is hooked already. The window is to outlive the hook, gone or
    // not.
    void HookWindow(const Window& window) noexcept;
    // Restores the previous procedure, if the window is still there. The user-data slot stays as it is.
    void UnhookWindow() noexcept;

    // The window procedure that the hook replaced; null while there is none.
    WNDPROC Previous() const { return previous_; }

private:
    const Window* window_ = nullptr;
    WNDPROC previous_ = nullptr;
};

// Hands a message to the window's owner, which decides whether it is forwarded.
LRESULT CALLBACK SubClassWndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept;

// Hands a message to the procedure that a hook replaced.
inline LRESULT CallPrevious(const WindowHook& PrevWndProc, HWND hwnd, UINT msg, WPARAM wParam,
                            LPARAM lParam) noexcept
{
    return CallWindowProcA(PrevWndProc.Previous(), hwnd, msg, wParam, lParam);
}

// Asked before a constituent text box is hooked; always False. A build for debugging could veto hooking here.
bool ErrorPending() noexcept;

// Stores "Font" when the font differs from the default in size, weight, character set, italic, name
// (case-sensitive), strikethrough or underline; stores nothing when all are equal.
void SaveFontProperty(PropertyBag& bag, const FontObject& font, const FontObject& defaultFont);

// The focus rectangle of an owner-drawn item that has the focus, grown by inset pixels on every side (a
// negative inset shrinks it).
void DrawFocusIfFocused(const DRAWITEMSTRUCT& item, short inset) noexcept;

// A caption in a rectangle, embossed when disabled. flags are DrawText's. The rectangle is changed while this
// draws and ends as it began.
void DrawCaption(HDC hDC, std::wstring_view text, RECT& rectangle, UINT flags, bool enabled);

// A message box with AppTitle as its caption, owned by the window that has the keyboard focus. Returns the
// button pressed.
int AppMsgBox(std::wstring_view text, UINT flags);

} // namespace kiv
