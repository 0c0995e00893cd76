#include "framework/subclass/SubClass.h"

#include "framework/subclass/MessageLong.h"
#include "framework/subclass/ModuleData.h"
#include "runtime/drawing/Graphics.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

void RegisterOwner(HWND hwnd, ISubClass* owner) noexcept
{
    SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
}

void WindowHook::HookWindow(const Window& window) noexcept
{
    if (previous_)
        return; // a second hook would make the chain loop into itself
    window_ = &window;
    previous_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window.hWnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&SubClassWndProc)));
}

void WindowHook::UnhookWindow() noexcept
{
    if (!previous_)
        return;
    SetWindowLongPtrA(window_->hWnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous_));
    previous_ = nullptr;
}

LRESULT CALLBACK SubClassWndProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept
{
    // Borrowed, not counted: a reference held by its own window would keep the owner alive for ever.
    auto* owner = reinterpret_cast<ISubClass*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
    if (!owner)
    {
        // Deliberately whatever stands in the procedure slot now, which for a hooked window is this very
        // procedure: an owner registers before it hooks and never clears the slot while hooked.
        return CallWindowProcA(reinterpret_cast<WNDPROC>(GetWindowLongPtrA(hwnd, GWLP_WNDPROC)), hwnd, msg,
                               wParam, lParam);
    }
    MessageLong result = 0;
    owner->WndProc(HandleToLong(hwnd), static_cast<LONG>(msg), static_cast<MessageLong>(wParam),
                   static_cast<MessageLong>(lParam), &result);
    return static_cast<LRESULT>(result);
}

bool ErrorPending() noexcept
{
    return false;
}

namespace
{

// The attributes that decide whether two fonts are the same to a container. Bold follows the weight.
struct FontAttributes
{
    LONGLONG Size = 0; // ten-thousandths of a point
    SHORT Weight = 0;
    SHORT Charset = 0;
    BOOL Italic = FALSE;
    std::wstring Name;
    BOOL Strikethrough = FALSE;
    BOOL Underline = FALSE;

    explicit FontAttributes(IFont* font)
    {
        CY size = {};
        Check(font->get_Size(&size));
        Size = size.int64;
        Check(font->get_Weight(&Weight));
        Check(font->get_Charset(&Charset));
        Check(font->get_Italic(&Italic));
        Bstr name;
        Check(font->get_Name(name.Receive()));
        Name = name.String();
        Check(font->get_Strikethrough(&Strikethrough));
        Check(font->get_Underline(&Underline));
    }

    bool operator==(const FontAttributes&) const = default;
};

bool SameFont(const FontObject& one, const FontObject& other)
{
    ComPtr<IFont> first;
    ComPtr<IFont> second;
    return one && other && SUCCEEDED(one.As(&first)) && SUCCEEDED(other.As(&second)) &&
           FontAttributes(first.Get()) == FontAttributes(second.Get());
}

} // namespace

void SaveFontProperty(PropertyBag& bag, const FontObject& font, const FontObject& defaultFont)
{
    if (!SameFont(font, defaultFont))
        bag.WriteProperty(L"Font", Variant(static_cast<IUnknown*>(font.Get())));
}

void DrawFocusIfFocused(const DRAWITEMSTRUCT& item, short inset) noexcept
{
    if ((item.itemState & ODS_FOCUS) == 0)
        return;
    RECT rectangle = item.rcItem;
    InflateRect(&rectangle, inset, inset);
    DrawFocusRect(item.hDC, &rectangle);
}

void DrawCaption(HDC hDC, std::wstring_view text, RECT& rectangle, UINT flags, bool enabled)
{
    const std::string ansi = Ansi(text);
    if (enabled)
        DrawTextA(hDC, ansi.c_str(), -1, &rectangle, flags);
    else
        DrawEmbossed(hDC, ansi, rectangle, flags);
}

int AppMsgBox(std::wstring_view text, UINT flags)
{
    // Copied: while the box is shown the host may set another title.
    const std::string title = Ansi(Module().AppTitle);
    const HWND focus = GetFocus();
    const int answer = MessageBoxA(focus, Ansi(text).c_str(), title.c_str(), flags);
    // Not every form puts the focus back where it was: the system leaves it with the form itself.
    const HWND form = GetAncestor(focus, GA_ROOT);
    if (focus != form && GetFocus() == form && IsWindowVisible(focus) && IsWindowEnabled(focus))
        Window(focus).TakeFocus();
    return answer;
}

} // namespace kiv
