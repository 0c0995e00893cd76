#pragma once

#include <windows.h>

#include <oleacc.h>
#include <wrl/client.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::test
{

// What a client of the system's accessibility interface is told.

Microsoft::WRL::ComPtr<IAccessible> AccessibleOf(HWND window);

// A part as an argument.
VARIANT Part(long number);

// Calls one of the object's members, by a number below MembersOfAccessible, for a part that there may not be.
// below: chooses a number for an argument, less than the one given. text: what is set.
constexpr std::size_t MembersOfAccessible = 16;
constexpr std::size_t DefaultActionMember = 10;
void CallMember(IAccessible& object, std::size_t member, const VARIANT& part, std::wstring_view text,
                const std::function<long(long)>& below);

// One thing in a line: its role, name, value, description, states, default action and key, as far as it has
// them: grouping "Resident?" = "Yes" (...) [focusable, focused] {Press} <Alt+R>
std::wstring Reading(IAccessible& object, long part = CHILDID_SELF);
// The window's object, then all that is in it, two blanks further in for each step.
std::vector<std::wstring> ReadingsOf(HWND window);
std::vector<std::wstring> ReadingsOf(IAccessible& object);

// The system's events about a window and those inside it, as they come to a client of the same process while
// the messages of this thread are handled: "focus", "value", "state 1" (of a part), "name", "description",
// "selection".
class WinEventLog
{
public:
    explicit WinEventLog(HWND window);
    WinEventLog(const WinEventLog&) = delete;
    WinEventLog& operator=(const WinEventLog&) = delete;
    ~WinEventLog();

    // Since the last time, in order. What was raised up to now has come when the messages are handled.
    std::vector<std::wstring> Take();

private:
    static void CALLBACK Heard(HWINEVENTHOOK hook, DWORD event, HWND window, LONG object, LONG part,
                               DWORD thread, DWORD time);

    HWND window_;
    HWINEVENTHOOK hook_;
    std::vector<std::wstring> events_;
};

} // namespace kiv::test
