#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace kiv
{

// The system's tool tip, which tells what a control's surface shows only in part. Its window is made when the
// pointer first rests there, so that controls that nobody points at have none. It sees no messages but those
// that it is given here, and neither takes the focus nor activates anything.
class ToolTip
{
public:
    ToolTip() = default;
    ToolTip(const ToolTip&) = delete;
    ToolTip& operator=(const ToolTip&) = delete;
    ~ToolTip() { Close(); }

    // Whether it has a window, shown or not.
    bool IsOpen() const;
    // A mouse message of the surface's window; place is where it shows in part what text says in full, of one
    // line or several.
    void Relay(const MSG& message, const RECT& place, std::wstring_view text);
    // For an open one: what there is to be said is another thing now.
    void Change(const RECT& place, std::wstring_view text);
    void Close();

private:
    void Open(const MSG& message, const RECT& place, std::wstring_view text);
    void Tell(UINT message);

    HWND window_ = nullptr; // may be gone: the form destroys what it owns
    HWND surface_ = nullptr;
    RECT place_ = {};
    std::wstring text_;
};

} // namespace kiv
