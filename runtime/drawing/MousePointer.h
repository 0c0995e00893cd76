#pragma once

#include <windows.h>

namespace kiv
{

// Shows the hourglass as the mouse pointer for as long as this lives.
class Hourglass
{
public:
    Hourglass() : former_(SetCursor(LoadCursorA(nullptr, reinterpret_cast<const char*>(IDC_WAIT)))) {}
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { SetCursor(former_); }

private:
    HCURSOR former_;
};

} // namespace kiv
