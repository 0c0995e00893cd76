#include "tests/support/Input.h"

#include "runtime/com/Errors.h"

#include <array>
#include <utility>

namespace kiv::test
{

namespace
{

// A key that no keyboard has and no program answers.
constexpr WORD MarkKey = VK_F24;

std::atomic<InputMark*> waiting = nullptr;

void Send(INPUT input)
{
    if (SendInput(1, &input, sizeof input) != 1)
        ThrowLastError();
}

void SendKey(WORD key, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    const bool extended = key >= VK_PRIOR && key <= VK_DOWN;
    input.ki.dwFlags = flags | (extended ? KEYEVENTF_EXTENDEDKEY : 0);
    Send(input);
}

void SendButton(MouseButton button, const std::array<DWORD, 3>& events)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = events[static_cast<std::size_t>(button)];
    Send(input);
}

} // namespace

void PressKey(WORD key)
{
    SendKey(key, 0);
}

void ReleaseKey(WORD key)
{
    SendKey(key, KEYEVENTF_KEYUP);
}

void TapKey(WORD key, std::initializer_list<WORD> held)
{
    for (const WORD each : held)
        PressKey(each);
    PressKey(key);
    ReleaseKey(key);
    for (const WORD each : held)
        ReleaseKey(each);
}

void TypeCharacter(wchar_t character)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = static_cast<WORD>(character);
    input.ki.dwFlags = KEYEVENTF_UNICODE;
    Send(input);
    input.ki.dwFlags |= KEYEVENTF_KEYUP;
    Send(input);
}

void PointAt(POINT place)
{
    if (!SetCursorPos(place.x, place.y))
        ThrowLastError();
}

void PressButton(MouseButton button)
{
    SendButton(button, {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_MIDDLEDOWN});
}

void ReleaseButton(MouseButton button)
{
    SendButton(button, {MOUSEEVENTF_LEFTUP, MOUSEEVENTF_RIGHTUP, MOUSEEVENTF_MIDDLEUP});
}

InputMark::InputMark(DWORD thread) :
    hook_(SetWindowsHookExW(WH_GETMESSAGE, &InputMark::Watch, nullptr, thread))
{
    if (!hook_)
        ThrowLastError();
    waiting = this;
    ReleaseKey(MarkKey);
}

InputMark::~InputMark()
{
    waiting = nullptr;
    UnhookWindowsHookEx(hook_);
}

LRESULT CALLBACK InputMark::Watch(int code, WPARAM wParam, LPARAM lParam) noexcept
{
    const auto& message = *reinterpret_cast<const MSG*>(lParam);
    const bool isKeyUp = message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
    InputMark* const mark = waiting;
    if (code == HC_ACTION && wParam == PM_REMOVE && isKeyUp && message.wParam == MarkKey && mark)
        mark->arrived_ = true;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

} // namespace kiv::test
