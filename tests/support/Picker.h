#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace kiv::test
{

std::wstring WindowText(HWND window);

// The picker of a thread, in the hands of a user who sits at another: the thread itself is busy in it until
// the user is done. All input is real; what a member waits for fails the test when it does not come.
class Picker
{
public:
    explicit Picker(DWORD thread) : thread_(thread) {}

    // Waits for it to be on the screen with the focus in it; false when it does not come.
    bool WaitUntilShown();
    bool IsShown() const;
    bool WaitUntilGone();
    // By its frame, if it is still there.
    void CloseIfShown();
    // Whatever else comes, until it is over: a picker that came too late would keep its thread for ever.
    void CloseUntil(const std::atomic<bool>& over);

    HWND Window() const { return window_; }
    HWND Surface() const;
    HWND List() const;
    HWND Frame() const;
    HWND Option(int index) const;
    HWND Ok() const;
    HWND CancelButton() const;
    HWND Focus() const;

    std::vector<std::wstring> Items() const;
    std::vector<long> ItemData() const;
    int Selected() const;
    int Top() const;
    bool IsSelected(HWND option) const;
    // Pixels of the picker's inside.
    RECT Place(HWND part) const;
    SIZE InnerSize() const;
    // What the frame is dragged to.
    void ResizeInside(SIZE size);

    // Input, and waiting until all of it is handled.
    void Key(WORD key, std::initializer_list<WORD> held = {});
    void Click(HWND part, POINT place);
    void Click(HWND part);
    void ClickItem(int item);
    void DoubleClickItem(int item);
    void Settle();
    bool WaitUntil(const std::function<bool()>& condition) const;

private:
    POINT MiddleOfItem(int item) const;
    void Point(POINT place);

    DWORD thread_;
    HWND window_ = nullptr;
};

// Lets the calling thread handle messages until the condition holds or the time is over.
using PumpingUntil = std::function<bool(const std::function<bool()>& condition, DWORD limitMilliseconds)>;

// Opens the picker by input that open sends, and lets a user at another thread answer it; returns when both
// are done.
void Pick(const PumpingUntil& pumpUntil, const std::function<void()>& open,
          const std::function<void(Picker&)>& user);

} // namespace kiv::test
