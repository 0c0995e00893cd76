#include "host/container/MessageBoxWatch.h"

#include "runtime/com/Boundary.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kiv::host
{

namespace
{

thread_local MessageBoxWatch* watching = nullptr;

std::wstring TextOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}

std::wstring ClassOf(HWND window)
{
    wchar_t name[64] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return name;
}

bool Has(HWND box, int button)
{
    return GetDlgItem(box, button) != nullptr;
}

// Nothing when the dialog's buttons are those of no message box.
std::optional<UINT> ButtonFlags(HWND box)
{
    if (Has(box, IDABORT))
        return MB_ABORTRETRYIGNORE;
    if (Has(box, IDTRYAGAIN))
        return MB_CANCELTRYCONTINUE;
    if (Has(box, IDRETRY))
        return MB_RETRYCANCEL;
    if (Has(box, IDYES))
        return Has(box, IDCANCEL) ? MB_YESNOCANCEL : MB_YESNO;
    if (Has(box, IDOK))
        return Has(box, IDCANCEL) ? MB_OKCANCEL : MB_OK;
    // Where Esc is to close a box that has only OK, that button is given the number of Cancel.
    if (Has(box, IDCANCEL))
        return MB_OK;
    return std::nullopt;
}

UINT IconFlags(HWND iconWindow)
{
    const auto icon = reinterpret_cast<HICON>(SendMessageW(iconWindow, STM_GETICON, 0, 0));
    if (!icon)
        return 0;
    const std::pair<LPCTSTR, UINT> kinds[] = {{IDI_EXCLAMATION, MB_ICONEXCLAMATION},
                                              {IDI_HAND, MB_ICONHAND},
                                              {IDI_QUESTION, MB_ICONQUESTION},
                                              {IDI_ASTERISK, MB_ICONASTERISK}};
    // The system's icons are shared: asking again gives the same handle.
    for (const auto& [name, flag] : kinds)
        if (LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(name)) == icon)
            return flag;
    return 0;
}

// Nothing when the dialog is no message box: it has one text, at most one icon and only buttons of the kind.
std::optional<ShownMessageBox> Read(HWND box)
{
    const std::optional<UINT> buttons = ButtonFlags(box);
    if (!buttons)
        return std::nullopt;
    ShownMessageBox shown{box, TextOf(box), {}, *buttons};
    bool hasText = false;
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
    {
        const std::wstring kind = ClassOf(child);
        if (kind == L"Static" && (GetWindowLongW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
            shown.Flags |= IconFlags(child);
        else if (kind == L"Static")
        {
            shown.Text = TextOf(child);
            hasText = true;
        }
        else if (kind != L"Button")
            return std::nullopt;
    }
    return hasText ? std::optional(shown) : std::nullopt;
}

} // namespace

MessageBoxWatch::MessageBoxWatch(Handler onShown) :
    onShown_(std::move(onShown)),
    hook_(SetWindowsHookExW(WH_CBT, &MessageBoxWatch::Hook, nullptr, GetCurrentThreadId()))
{
    if (!hook_)
        ThrowLastError();
    watching = this;
}

MessageBoxWatch::~MessageBoxWatch()
{
    UnhookWindowsHookEx(hook_);
    watching = nullptr;
}

const ShownMessageBox* MessageBoxWatch::Current() const
{
    return open_.empty() ? nullptr : &open_.back();
}

LRESULT CALLBACK MessageBoxWatch::Hook(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && watching)
        static_cast<void>(Boundary([window] { watching->OnActivating(window); }));
    else if (code == HCBT_DESTROYWND && watching)
        std::erase_if(watching->open_, [window](const ShownMessageBox& box) { return box.Window == window; });
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void MessageBoxWatch::OnActivating(HWND window)
{
    // A box that is already open comes up again when the user returns to it.
    if (ClassOf(window) != L"#32770" ||
        std::ranges::find(open_, window, &ShownMessageBox::Window) != open_.end())
        return;
    if (const std::optional<ShownMessageBox> box = Read(window))
    {
        open_.push_back(*box);
        if (const Handler onShown = onShown_)
            onShown(*box);
    }
}

} // namespace kiv::host
