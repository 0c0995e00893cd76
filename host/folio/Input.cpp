#include "host/folio/Input.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kiv::host
{

namespace
{

class InputSequence
{
public:
    void Key(WORD virtualKey, bool down)
    {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = virtualKey;
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
        input.ki.dwFlags =
            (down ? 0U : KEYEVENTF_KEYUP) | (IsExtended(virtualKey) ? KEYEVENTF_EXTENDEDKEY : 0U);
        inputs_.push_back(input);
    }

    void Character(wchar_t character, bool down)
    {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = static_cast<WORD>(character);
        input.ki.dwFlags = KEYEVENTF_UNICODE | (down ? 0U : KEYEVENTF_KEYUP);
        inputs_.push_back(input);
    }

    // button: one that goes down or up there, in the same step, since a window that has just come up may make
    // the system look where the pointer was before.
    void MoveMouse(POINT screen, DWORD button = 0)
    {
        // Absolute positions count in 65536ths of the screen; half a pixel more hits the middle of the one
        // meant.
        const auto scaled = [](LONG pixel, int metric) {
            const int extent = GetSystemMetrics(metric);
            return static_cast<LONG>(((2LL * pixel + 1) * 65536) / (2LL * extent));
        };
        Mouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | button, scaled(screen.x, SM_CXSCREEN),
              scaled(screen.y, SM_CYSCREEN));
    }

    void Mouse(DWORD flags, LONG x = 0, LONG y = 0)
    {
        INPUT input = {};
        input.type = INPUT_MOUSE;
        input.mi.dx = x;
        input.mi.dy = y;
        input.mi.dwFlags = flags;
        inputs_.push_back(input);
    }

    void Send()
    {
        const auto count = static_cast<UINT>(inputs_.size());
        if (SendInput(count, inputs_.data(), sizeof(INPUT)) != count)
            throw std::runtime_error("the system did not take the input");
    }

private:
    // Keys that the arrow block shares with the number block.
    static bool IsExtended(WORD virtualKey)
    {
        return (virtualKey >= VK_PRIOR && virtualKey <= VK_DOWN) || virtualKey == VK_INSERT ||
               virtualKey == VK_DELETE || virtualKey == VK_APPS;
    }

    std::vector<INPUT> inputs_;
};

// The virtual key and the shift state (1 Shift, 2 Ctrl, 4 Alt) that type a character; virtual key 0: none
// does.
struct Typing
{
    WORD VirtualKey;
    BYTE Shift;
};

Typing TypingOf(wchar_t character)
{
    const SHORT scan = VkKeyScanW(character);
    if (scan == -1)
        return {0, 0};
    return {static_cast<WORD>(scan & 0xFF), static_cast<BYTE>((scan >> 8) & 7)};
}

void PressHolding(InputSequence& inputs, WORD virtualKey, bool shift, bool control, bool alt)
{
    const std::pair<bool, WORD> modifiers[] = {{control, static_cast<WORD>(VK_CONTROL)},
                                               {alt, static_cast<WORD>(VK_MENU)},
                                               {shift, static_cast<WORD>(VK_SHIFT)}};
    for (const auto& [held, modifier] : modifiers)
        if (held)
            inputs.Key(modifier, true);
    inputs.Key(virtualKey, true);
    inputs.Key(virtualKey, false);
    for (const auto& [held, modifier] : modifiers)
        if (held)
            inputs.Key(modifier, false);
}

} // namespace

void SendKey(const KeyChord& chord)
{
    Typing typing = {static_cast<WORD>(chord.VirtualKey), 0};
    if (typing.VirtualKey == 0)
        typing = TypingOf(static_cast<wchar_t>(chord.Character));
    if (typing.VirtualKey == 0)
        throw std::runtime_error(std::string("no key types ") + chord.Character);
    InputSequence inputs;
    PressHolding(inputs, typing.VirtualKey, chord.Shift || (typing.Shift & 1),
                 chord.Control || (typing.Shift & 2), chord.Alt || (typing.Shift & 4));
    inputs.Send();
}

void SendCharacter(wchar_t character)
{
    InputSequence inputs;
    const Typing typing = TypingOf(character);
    if (typing.VirtualKey != 0)
        PressHolding(inputs, typing.VirtualKey, typing.Shift & 1, typing.Shift & 2, typing.Shift & 4);
    else
    {
        inputs.Character(character, true);
        inputs.Character(character, false);
    }
    inputs.Send();
}

void SendClick(POINT screen, MouseButton button)
{
    InputSequence inputs;
    inputs.MoveMouse(screen);
    inputs.MoveMouse(screen, button == MouseButton::Left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
    inputs.MoveMouse(screen, button == MouseButton::Left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
    inputs.Send();
}

void SendPress(POINT screen)
{
    InputSequence inputs;
    inputs.MoveMouse(screen);
    inputs.MoveMouse(screen, MOUSEEVENTF_LEFTDOWN);
    inputs.Send();
}

void SendRelease()
{
    InputSequence inputs;
    inputs.Mouse(MOUSEEVENTF_LEFTUP);
    inputs.Send();
}

void PutOnClipboard(std::wstring_view text)
{
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
    if (!memory)
        throw std::runtime_error("there is no memory for the clipboard's text");
    auto* target = static_cast<wchar_t*>(GlobalLock(memory));
    target[text.copy(target, text.size())] = L'\0';
    GlobalUnlock(memory);
    const bool opened = OpenClipboard(nullptr) != FALSE;
    const bool taken = opened && EmptyClipboard() && SetClipboardData(CF_UNICODETEXT, memory);
    if (opened)
        CloseClipboard();
    if (!taken) // otherwise the system owns the memory
    {
        GlobalFree(memory);
        throw std::runtime_error("the clipboard does not take the text");
    }
}

} // namespace kiv::host
