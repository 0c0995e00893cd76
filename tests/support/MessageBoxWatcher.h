#pragma once

#include "tests/support/Thread.h"

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace kiv::test
{

// A message box as the user sees it.
struct ShownMessageBox
{
    std::wstring Caption;
    std::wstring Text;
    std::vector<std::wstring> Buttons;
    HICON Icon = nullptr;
    HWND Owner = nullptr;
};

// Reads the message boxes that a thread shows, by default the calling one, and presses the first button of
// each: that thread is busy in a box until somebody does.
class MessageBoxWatcher
{
public:
    explicit MessageBoxWatcher(DWORD thread = GetCurrentThreadId());
    MessageBoxWatcher(const MessageBoxWatcher&) = delete;
    MessageBoxWatcher& operator=(const MessageBoxWatcher&) = delete;
    ~MessageBoxWatcher();

    // Ends the watch and tells what was shown.
    const std::vector<ShownMessageBox>& Stop();

private:
    void Watch();
    void Answer(HWND box);

    const DWORD watched_;
    std::vector<ShownMessageBox> shown_;
    HANDLE stop_;
    std::optional<Thread> thread_;
};

} // namespace kiv::test
