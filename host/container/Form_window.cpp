// The form's window: messages, painting, focus of the whole window, and the message loop.

#include "host/container/DesignSurface.h"
#include "host/container/Form.h"
#include "host/container/FormFrame.h"
#include "host/container/ScreenUnits.h"
#include "host/container/WindowClass.h"
#include "runtime/com/Boundary.h"
#include "runtime/core/Scoped.h"

#include <oleidl.h>

#include <algorithm>
#include <exception>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

constexpr wchar_t ClassName[] = L"KivForm";

struct FormLook
{
    DWORD Style;
    DWORD ExtendedStyle;
};
constexpr FormLook FixedLook = {WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN,
                                WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME};
// Of a form that the screen has no room for.
constexpr FormLook SizableLook = {WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};

// Of the window, for a client area of that size.
SIZE WholeSize(SIZE client, const FormLook& look)
{
    RECT bounds = {0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&bounds, look.Style, FALSE, look.ExtendedStyle);
    return SizeOf(bounds);
}

// Work of another thread, see Invoke and Post. lParam holds an Errand or an owned std::function.
constexpr UINT InvokedWork = WM_APP;
constexpr UINT PostedWork = WM_APP + 1;

struct Errand
{
    const std::function<void()>& Work;
    std::exception_ptr Thrown;
    bool Done = false;
};

BOOL CALLBACK TellOfColors(HWND window, LPARAM)
{
    SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
    return TRUE;
}

} // namespace

// What is made in a mirrored window is mirrored by itself.
void Form::CreateFormWindow(std::wstring_view title, SIZE size, bool rightToLeft)
{
    RegisterWindowClass(ClassName, &Form::WindowProcedure, GetSysColorBrush(COLOR_BTNFACE));
    RECT desk = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &desk, 0);
    const SIZE room = SizeOf(desk);
    FormLook look = FixedLook;
    SIZE whole = WholeSize(size, look);
    if (whole.cx > room.cx || whole.cy > room.cy)
    {
        look = SizableLook;
        whole = WholeSize(size, look);
        // A bar along one edge hides what the other direction had just room for.
        if (whole.cx > room.cx)
            whole.cy += GetSystemMetrics(SM_CYHSCROLL);
        if (whole.cy > room.cy)
            whole.cx += GetSystemMetrics(SM_CXVSCROLL);
        whole = {std::min(whole.cx, room.cx), std::min(whole.cy, room.cy)};
    }
    window_ = CreateWindowExW(look.ExtendedStyle | (rightToLeft ? WS_EX_LAYOUTRTL : 0), ClassName,
                              std::wstring(title).c_str(), look.Style, desk.left + (room.cx - whole.cx) / 2,
                              desk.top + (room.cy - whole.cy) / 3, whole.cx, whole.cy, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (!window_)
        ThrowLastError();
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    sheet_ = std::make_unique<FormSheet>(window_, static_cast<SheetOwner&>(*this), size);
}

// No larger than what there is to see.
void Form::LimitSize(MINMAXINFO& limits) const
{
    const SIZE whole = WholeSize(sheet_->Size(), SizableLook);
    limits.ptMaxTrackSize = {std::max<LONG>(whole.cx, limits.ptMinTrackSize.x),
                             std::max<LONG>(whole.cy, limits.ptMinTrackSize.y)};
}

void Form::Show()
{
    ShowWindow(window_, SW_SHOWNORMAL);
    UpdateWindow(window_);
    SetForegroundWindow(window_);
}

LRESULT CALLBACK Form::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* const form = reinterpret_cast<Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!form)
        return DefWindowProcW(window, message, wParam, lParam);
    LRESULT result = 0;
    static_cast<void>(Boundary([&] { result = form->Handle(message, wParam, lParam); }));
    return result;
}

LRESULT Form::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_SIZE:
        if (sheet_)
            sheet_->OnFormSized();
        return 0;
    case WM_GETMINMAXINFO:
        if (sheet_ && (GetWindowLongPtrW(window_, GWL_STYLE) & WS_THICKFRAME))
            LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
        return 0;
    case WM_HSCROLL:
    case WM_VSCROLL:
        if (sheet_)
            sheet_->OnScroll(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(wParam));
        return 0;
    case WM_MOUSEHWHEEL:
    case WM_MOUSEWHEEL:
        // The wheel that goes sideways counts the other way.
        if (sheet_ && message == WM_MOUSEHWHEEL)
            sheet_->OnWheel(SB_HORZ, -GET_WHEEL_DELTA_WPARAM(wParam));
        else if (sheet_)
            sheet_->OnWheel(SB_VERT, GET_WHEEL_DELTA_WPARAM(wParam));
        return 0;
    case WM_SYSCOLORCHANGE:
        // The system tells top-level windows alone, and leaves it to them to tell those on them.
        EnumChildWindows(Page(), &TellOfColors, 0);
        break;
    case WM_ACTIVATE:
        OnActivate(LOWORD(wParam) != WA_INACTIVE);
        break;
    case WM_SETFOCUS:
        RestoreFocus();
        return 0;
    case WM_CLOSE:
        AskToClose(nullptr, CancelButton() != nullptr);
        return 0;
    case WM_DESTROY: // by somebody else: Destroy lets no messages through any more
        Destroy();
        return 0;
    case InvokedWork: {
        auto& errand = *reinterpret_cast<Errand*>(lParam);
        try
        {
            errand.Work();
        }
        catch (...)
        {
            errand.Thrown = std::current_exception();
        }
        errand.Done = true;
        return 0;
    }
    case PostedWork: {
        const std::unique_ptr<std::function<void()>> work(reinterpret_cast<std::function<void()>*>(lParam));
        (*work)();
        return 0;
    }
    default:
        break;
    }
    return DefWindowProcW(window_, message, wParam, lParam);
}

void Form::PaintItems(HDC context)
{
    if (design_)
        design_->PaintGrid(context);
    SelectObject(context, Font());
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    for (const auto& item : items_)
        if (item->CanBeSeen())
            item->Paint(context);
    if (design_)
        design_->PaintHandles(context);
}

void Form::Close()
{
    AskToClose(nullptr, false);
}

void Form::CloseBy(const FormItem& item)
{
    const auto& button = dynamic_cast<const Button&>(item);
    AskToClose(&button, button.IsCancel());
}

void Form::AskToClose(const Button* button, bool cancelled)
{
    // A form that is asked already, and shows a message meanwhile, is not asked again.
    if (!window_ || isAsked_)
        return;
    const auto mayClose = [&] {
        const Scoped<bool> asked(isAsked_, true);
        const Scoped<const Button*> closedBy(closedBy_, button);
        cancelled_ = cancelled;
        const auto onClosing = OnClosing;
        return !onClosing || onClosing();
    };
    if (mayClose())
        Destroy();
}

Button* Form::FindButton(HWND window) const
{
    for (const auto& item : items_)
        if (auto* const button = dynamic_cast<Button*>(item.get()); button && button->Window() == window)
            return button;
    return nullptr;
}

void Form::OnCommand(WORD notification, HWND window)
{
    Button* const button = FindButton(window);
    if (!button)
        return;
    switch (notification)
    {
    case BN_CLICKED:
        button->Press();
        break;
    case BN_SETFOCUS: {
        const RECT bounds = button->Bounds();
        // The control that was active may close the form.
        MakeActive(nullptr);
        UpdateDefaultButton();
        if (sheet_)
            sheet_->Reveal(bounds);
        break;
    }
    case BN_KILLFOCUS:
        UpdateDefaultButton();
        break;
    default:
        break;
    }
}

void Form::OnActivate(bool active)
{
    if (!active)
        lastFocus_ = GetFocus();
    if (const ComPtr<IOleInPlaceActiveObject> object = frame_->ActiveObject())
    {
        object->OnFrameWindowActivate(active);
        object->OnDocWindowActivate(active);
    }
}

void Form::RestoreFocus()
{
    if (design_)
        return;
    if (lastFocus_ && IsChild(window_, lastFocus_) && IsWindowEnabled(lastFocus_))
        SetFocus(lastFocus_);
    else if (!FocusedItem())
        FocusNext(false);
}

void Form::Run()
{
    MSG message;
    while (window_ && GetMessageW(&message, nullptr, 0, 0) > 0)
        if (!Translate(message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
}

bool Form::Invoke(const std::function<void()>& work) const
{
    Errand errand{work, nullptr};
    SendMessageW(window_, InvokedWork, 0, reinterpret_cast<LPARAM>(&errand));
    if (errand.Thrown)
        std::rethrow_exception(errand.Thrown);
    return errand.Done;
}

bool Form::Post(std::function<void()> work) const
{
    auto owned = std::make_unique<std::function<void()>>(std::move(work));
    if (!window_ || !PostMessageW(window_, PostedWork, 0, reinterpret_cast<LPARAM>(owned.get())))
        return false;
    static_cast<void>(owned.release()); // the receiver's now
    return true;
}

} // namespace kiv::host
