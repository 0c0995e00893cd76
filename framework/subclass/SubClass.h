#pragma once

#include "runtime/com/PropertyBag.h"
#include "runtime/drawing/FontReference.h"

#include <windows.h>

#include <KivControls.h>

#include <string_view>

namespace kiv
{

// The window subclassing service. One window procedure serves all hooked windows: a window's user-data slot
// leads to its owner's ISubClass, and each owner keeps the previous procedure of each window that it hooks.
// There is no table of windows.

// The previous window procedure of a hooked window; 0 while it is not hooked.
using WndProcSlot = LONG_PTR;

// Leads the window's messages to an owner, not counted: the owner unhooks before it goes. Comes before
// HookWindow.
void RegisterOwner(HWND hwnd, ISubClass* owner) noexcept;

// Installs SubClassWndProc, unless the slot says that it already is.
void HookWindow(HWND hwnd, WndProcSlot& PrevWndProc) noexcept;

// Restores the previous procedure. The user-data slot stays as it is.
void UnhookWindow(HWND hwnd, WndProcSlot& PrevWndProc) noexcept;

// Hands a message to the window's owner, which decides whether it is forwarded.
LRESULT CALLBACK SubClassWndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept;

// Hands a message to the procedure that a hook replaced.
inline LRESULT CallPrevious(WndProcSlot PrevWndProc, HWND hwnd, UINT msg, WPARAM wParam,
                            LPARAM lParam) noexcept
{
    return CallWindowProcA(reinterpret_cast<WNDPROC>(PrevWndProc), hwnd, msg, wParam, lParam);
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
