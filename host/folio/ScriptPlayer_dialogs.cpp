// The steps of a script that are about a window in front of the form, as a control's dialog is.

#include "host/container/Automation.h"
#include "host/folio/Picture.h"
#include "host/folio/ScriptPlayer.h"
#include "host/folio/Text.h"

#include <vector>

namespace kiv::host
{

namespace
{

std::wstring CaptionOf(HWND window)
{
    std::wstring caption(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    caption.resize(static_cast<std::size_t>(
        GetWindowTextW(window, caption.data(), static_cast<int>(caption.size()) + 1)));
    return caption;
}

struct WindowSearch
{
    const wchar_t* Kind;
    std::vector<HWND> Found;
};

BOOL CALLBACK SearchOne(HWND window, LPARAM parameter) noexcept
{
    auto& search = *reinterpret_cast<WindowSearch*>(parameter);
    wchar_t name[32] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (IsWindowVisible(window) && SameName(name, search.Kind))
        search.Found.push_back(window);
    return TRUE;
}

// The visible windows of a kind in the window, those in frames included.
std::vector<HWND> WindowsOf(HWND window, const wchar_t* kind)
{
    WindowSearch search{kind, {}};
    if (window)
        EnumChildWindows(window, &SearchOne, reinterpret_cast<LPARAM>(&search));
    return search.Found;
}

std::wstring ListText(HWND list, LRESULT item)
{
    const auto index = static_cast<WPARAM>(item);
    const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, index, 0);
    if (length < 0)
        return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = SendMessageW(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    text.resize(copied < 0 ? 0 : static_cast<std::size_t>(copied));
    return text;
}

POINT MiddleOnScreen(HWND window, const RECT& client)
{
    POINT point = {(client.left + client.right) / 2, (client.top + client.bottom) / 2};
    ClientToScreen(window, &point);
    return point;
}

} // namespace

HWND ScriptPlayer::WindowInFront() const
{
    const HWND window = GetForegroundWindow();
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    const bool isOurs = process == GetCurrentProcessId() && IsWindowVisible(window);
    return isOurs && window != form_.Window() ? window : nullptr;
}

HWND ScriptPlayer::ListInFront() const
{
    const std::vector<HWND> lists = WindowsOf(WindowInFront(), L"ListBox");
    if (lists.size() != 1)
        throw Failure{"no window with a list is open in front of the form"};
    return lists.front();
}

POINT ScriptPlayer::PointInFront(const ScriptStep& step) const
{
    const std::wstring text = Wide(step.Text);
    if (step.Part == ScriptPart::ListItem)
    {
        const HWND list = ListInFront();
        const LRESULT count = SendMessageW(list, LB_GETCOUNT, 0, 0);
        for (LRESULT item = SendMessageW(list, LB_GETTOPINDEX, 0, 0); item < count; ++item)
        {
            RECT place = {};
            RECT client = {};
            SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&place));
            GetClientRect(list, &client);
            if (place.top < client.bottom && ListText(list, item).starts_with(text))
                return MiddleOnScreen(list, place);
        }
        throw Failure{"the list shows no item " + QuoteFormText(step.Text)};
    }
    for (const HWND button : WindowsOf(WindowInFront(), L"Button"))
    {
        std::wstring caption = CaptionOf(button);
        std::erase(caption, L'&');
        RECT client = {};
        GetClientRect(button, &client);
        if (caption == text)
            return MiddleOnScreen(button, client);
    }
    throw Failure{"there is no button " + QuoteFormText(step.Text) + " in front of the form"};
}

void ScriptPlayer::ExpectWindow(const ScriptStep& step)
{
    const bool none = step.Verb == ScriptVerb::ExpectNoWindow;
    std::string got;
    const bool came = Until([&] {
        const HWND window = WindowInFront();
        got = window ? "the window " + QuoteFormText(Utf8(CaptionOf(window))) : "none";
        if (none)
            return !window && IsWindowEnabled(form_.Window());
        return window && CaptionOf(window) == Wide(step.Text);
    });
    if (!came)
        throw Failure{(none ? "expected no window in front of the form, got "
                            : "expected the window " + QuoteFormText(step.Text) + ", got ") +
                      got};
}

void ScriptPlayer::ExpectListItem(const ScriptStep& step)
{
    const bool none = step.Verb == ScriptVerb::ExpectNoListItem;
    std::string got;
    const bool came = Until([&] {
        const HWND list = ListInFront();
        const LRESULT item = SendMessageW(list, LB_GETCURSEL, 0, 0);
        const std::wstring text = ListText(list, item);
        got = item < 0 ? "none" : QuoteFormText(Utf8(text));
        return none ? item < 0 : item >= 0 && text.starts_with(Wide(step.Text));
    });
    if (!came)
        throw Failure{"expected " + (none ? "no item" : "the item " + QuoteFormText(step.Text)) +
                      " to be selected, got " + got};
}

void ScriptPlayer::TakePicture()
{
    Settle();
    OnForm([this] {
        const HWND window = WindowInFront();
        SavePicture(window ? window : form_.Window(), props_.Shot);
        tookPicture_ = true;
    });
}

void ScriptPlayer::CloseDatabase()
{
    OnForm([this] { CallMethod(props_.Database.Get(), L"Close", {}); });
}

} // namespace kiv::host
