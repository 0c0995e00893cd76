#pragma once

#include <windows.h>

namespace kiv::test
{

// A visible top-level window that stands for a host's form. A popup: without a window manager Wine waits two
// seconds for one whenever a window with a caption goes away.
class HostWindow
{
public:
    HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow();

    HWND Handle() const { return window_; }
    // Before its time; the destructor then does nothing.
    void Destroy();

private:
    HWND window_;
};

} // namespace kiv::test
