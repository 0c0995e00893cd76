#include "runtime/constituents/Clipboard.h"

#include "runtime/com/Errors.h"

#include <cstring>

namespace kiv
{

namespace
{

// Another program has the clipboard open for moments only, when all is well.
constexpr int Attempts = 10;
constexpr DWORD PauseMilliseconds = 5;

class OpenedClipboard
{
public:
    explicit OpenedClipboard(HWND owner)
    {
        for (int i = 0; i < Attempts && !open_; ++i)
        {
            if (i > 0)
                Sleep(PauseMilliseconds);
            open_ = OpenClipboard(owner) != FALSE;
        }
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard()
    {
        if (open_)
            CloseClipboard();
    }

    explicit operator bool() const { return open_; }

private:
    bool open_ = false;
};

} // namespace

std::wstring Clipboard::GetText(HWND owner)
{
    const OpenedClipboard clipboard(owner);
    const HANDLE data = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* text = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr;
    if (!text)
        return {};
    // What other programs put there need not end with a zero.
    const std::wstring copy(text, wcsnlen(text, GlobalSize(data) / sizeof(wchar_t)));
    GlobalUnlock(data);
    return copy;
}

void Clipboard::SetText(HWND owner, std::wstring_view text)
{
    const OpenedClipboard clipboard(owner);
    if (!clipboard || !EmptyClipboard())
        ThrowLastError();
    const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    if (!data)
        throw ComError(E_OUTOFMEMORY);
    auto* target = static_cast<wchar_t*>(GlobalLock(data));
    std::memcpy(target, text.data(), text.size() * sizeof(wchar_t));
    target[text.size()] = L'\0';
    GlobalUnlock(data);
    // The system owns the memory once it has taken it.
    if (!SetClipboardData(CF_UNICODETEXT, data))
    {
        GlobalFree(data);
        ThrowLastError();
    }
}

} // namespace kiv
