// The form's window: messages, painting, focus of the whole window, and the message loop.

#include "host/container/DesignSurface.h"
#include "host/container/Form.h"
#include "host/container/FormFrame.h"
#include "host/container/ScreenUnits.h"
#include "runtime/com/Boundary.h"

#include <oleidl.h>

#include <exception>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

constexpr wchar_t ClassName[] = L"KivForm";
constexpr DWORD FormStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD FormExtendedStyle = WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME;

// Work of another thread, see Invoke and Post. lParam holds an Errand or an owned std::function.
constexpr UINT InvokedWork = WM_APP;
constexpr UINT PostedWork = WM_APP + 1;

struct Errand
{
    const std::function<void()>& Work;
    std::exception_ptr Thrown;
    bool Done = false;
};

void RegisterFormClass(WNDPROC procedure)
{
    WNDCLASSEXW formClass = {};
    formClass.cbSize = sizeof(formClass);
    formClass.lpfnWndProc = procedure;
    formClass.hInstance = GetModuleHandleW(nullptr);
    formClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    formClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    formClass.lpszClassName = ClassName;
    if (!RegisterClassExW(&formClass) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
        ThrowLastError();
}

} // namespace

void Form::CreateFormWindow(std::wstring_view title, SIZE clientSize)
{
    RegisterFormClass(&Form::WindowProcedure);
    RECT bounds = {0, 0, clientSize.cx, clientSize.cy};
    AdjustWindowRectEx(&bounds, FormStyle, FALSE, FormExtendedStyle);
    const SIZE size = SizeOf(bounds);
    RECT desk = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &desk, 0);
    window_ = CreateWindowExW(FormExtendedStyle, ClassName, std::wstring(title).c_str(), FormStyle,
                              desk.left + (SizeOf(desk).cx - size.cx) / 2,
                              desk.top + (SizeOf(desk).cy - size.cy) / 3, size.cx, size.cy, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (!window_)
        ThrowLastError();
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
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
    case WM_PAINT:
        Paint();
        return 0;
    case WM_COMMAND:
        OnCommand(HIWORD(wParam), reinterpret_cast<HWND>(lParam));
        return 0;
    case WM_ACTIVATE:
        OnActivate(LOWORD(wParam) != WA_INACTIVE);
        break;
    case WM_SETFOCUS:
        RestoreFocus();
        return 0;
    case WM_CLOSE:
        if (const auto onClosing = OnClosing; !onClosing || onClosing())
            Destroy();
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

void Form::Paint()
{
    PAINTSTRUCT paint;
    const HDC context = BeginPaint(window_, &paint);
    const int saved = SaveDC(context);
    if (design_)
        design_->PaintGrid(context);
    SelectObject(context, Font());
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
    for (const auto& item : items_)
        if (item->Visible())
            item->Paint(context);
    if (design_)
        design_->PaintHandles(context);
    RestoreDC(context, saved);
    EndPaint(window_, &paint);
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
    case BN_SETFOCUS:
        MakeActive(nullptr);
        UpdateDefaultButton();
        break;
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
