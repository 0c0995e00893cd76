#include "host/folio/Speech.h"

#include "host/folio/Text.h"
#include "runtime/com/Boundary.h"
#include "runtime/com/Bstr.h"
#include "runtime/com/Variant.h"

#include <wrl/client.h>

#include <array>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

Speech* speaking = nullptr;

template<class Getter>
std::wstring TextOf(IAccessible& object, Getter getter, long part)
{
    Bstr text;
    return SUCCEEDED((object.*getter)(Variant(part).Get(), text.Receive())) ? text.String() : std::wstring();
}

template<class Getter>
long NumberOf(IAccessible& object, Getter getter, long part)
{
    Variant number;
    if (FAILED((object.*getter)(Variant(part).Get(), number.Receive())) || number.Type() != VT_I4)
        return 0;
    return number.Long();
}

std::wstring RoleInWords(long role)
{
    std::array<wchar_t, 64> text = {};
    GetRoleTextW(static_cast<DWORD>(role), text.data(), static_cast<UINT>(text.size()));
    return text.data();
}

// Those that a listener needs, in the system's own words.
std::wstring StatesInWords(long state)
{
    std::wstring words;
    for (const long bit : {STATE_SYSTEM_CHECKED, STATE_SYSTEM_UNAVAILABLE, STATE_SYSTEM_EXPANDED,
                           STATE_SYSTEM_COLLAPSED, STATE_SYSTEM_SELECTED})
    {
        std::array<wchar_t, 64> text = {};
        if ((state & bit) != 0 &&
            GetStateTextW(static_cast<DWORD>(bit), text.data(), static_cast<UINT>(text.size())) != 0)
            words += (words.empty() ? L"" : L", ") + std::wstring(text.data());
    }
    return words;
}

// The part that has the focus, of what is divided.
long FocusedPart(IAccessible& object)
{
    Variant focused;
    return SUCCEEDED(object.get_accFocus(focused.Receive())) && focused.Type() == VT_I4 ? focused.Long()
                                                                                        : CHILDID_SELF;
}

} // namespace

std::wstring Spoken(IAccessible& object, long part)
{
    std::wstring said;
    const auto say = [&said](const std::wstring& words) {
        if (!words.empty())
            said += (said.empty() ? L"" : L", ") + words;
    };
    // A part is heard after what it is a part of.
    if (part != CHILDID_SELF)
        say(TextOf(object, &IAccessible::get_accName, CHILDID_SELF));
    say(TextOf(object, &IAccessible::get_accName, part));
    say(RoleInWords(NumberOf(object, &IAccessible::get_accRole, part)));
    say(TextOf(object, &IAccessible::get_accValue, part));
    say(StatesInWords(NumberOf(object, &IAccessible::get_accState, part)));
    say(TextOf(object, &IAccessible::get_accDescription, part));
    say(TextOf(object, &IAccessible::get_accKeyboardShortcut, part));
    return said;
}

Speech::Speech(const std::filesystem::path& file) :
    file_(file),
    hook_(SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_FOCUS, nullptr, &Speech::Heard,
                          GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT))
{
    speaking = this;
}

Speech::~Speech()
{
    speaking = nullptr;
    UnhookWinEvent(hook_);
}

void CALLBACK Speech::Heard(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG part, DWORD, DWORD) noexcept
{
    static_cast<void>(Boundary([&] {
        ComPtr<IAccessible> found;
        Variant of;
        if (!speaking || object != OBJID_CLIENT ||
            FAILED(AccessibleObjectFromEvent(window, static_cast<DWORD>(object), static_cast<DWORD>(part),
                                             &found, of.Receive())) ||
            !found)
            return;
        const long heard = part == CHILDID_SELF ? FocusedPart(*found.Get()) : part;
        if (const std::wstring said = Spoken(*found.Get(), heard); !said.empty())
            speaking->file_.WriteLine(Utf8(said));
    }));
}

} // namespace kiv::host
