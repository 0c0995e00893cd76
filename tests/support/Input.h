#pragma once

#include <windows.h>

#include <atomic>
#include <initializer_list>

namespace kiv::test
{

// Input as keyboard and mouse make it: the system decides which window it reaches, and when.

enum class MouseButton
{
    Left,
    Right,
    Middle
};

void PressKey(WORD key);
void ReleaseKey(WORD key);
// Down and up again, while the given keys are held down.
void TapKey(WORD key, std::initializer_list<WORD> held = {});
// A character that the keyboard need not have.
void TypeCharacter(wchar_t character);

// In pixels of the screen.
void PointAt(POINT place);
void PressButton(MouseButton button);
void ReleaseButton(MouseButton button);

// Marks the end of the input sent so far. Once the mark has come through the message queue of a thread, by
// default the calling one, all of that input has been handled. One at a time.
class InputMark
{
public:
    explicit InputMark(DWORD thread = GetCurrentThreadId());
    InputMark(const InputMark&) = delete;
    InputMark& operator=(const InputMark&) = delete;
    ~InputMark();

    bool Arrived() const { return arrived_; }

private:
    static LRESULT CALLBACK Watch(int code, WPARAM wParam, LPARAM lParam) noexcept;

    std::atomic<bool> arrived_ = false;
    HHOOK hook_;
};

} // namespace kiv::test
